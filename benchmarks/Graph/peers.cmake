# A peer whose library is not found is left out.
find_package(dlib QUIET)
if(dlib_FOUND)
    target_sources(${program} PRIVATE "${CMAKE_CURRENT_SOURCE_DIR}/${folder}/DlibPeer.cpp")
    target_link_libraries(${program} PRIVATE dlib::dlib)
else()
    message(STATUS "Benchmarks of assignment: dlib not found, no comparison with it")
endif()
