# The plain clusterings are those of the tests.
target_include_directories(${program} PRIVATE "${PROJECT_SOURCE_DIR}/tests")
find_package(GTest REQUIRED)
target_link_libraries(${program} PRIVATE GTest::gtest)
# The table of kernel values is no part of the library's interface.
target_sources(${program} PRIVATE "${PROJECT_SOURCE_DIR}/OVRIXMath/Clustering/KernelSamples.cpp")

find_package(dlib QUIET)
if(dlib_FOUND)
    target_sources(${program} PRIVATE "${CMAKE_CURRENT_SOURCE_DIR}/${folder}/DlibKernelPeer.cpp"
        "${CMAKE_CURRENT_SOURCE_DIR}/${folder}/DlibKMeansPeer.cpp")
    target_link_libraries(${program} PRIVATE dlib::dlib)
else()
    message(STATUS "Benchmarks of clustering: dlib not found, no comparison with it")
endif()

find_package(OpenCV QUIET COMPONENTS core)
if(OpenCV_FOUND)
    target_sources(${program} PRIVATE "${CMAKE_CURRENT_SOURCE_DIR}/${folder}/OpenCvKMeansPeer.cpp")
    target_include_directories(${program} SYSTEM PRIVATE ${OpenCV_INCLUDE_DIRS})
    target_link_libraries(${program} PRIVATE ${OpenCV_LIBS})
else()
    message(STATUS "Benchmarks of clustering: OpenCV not found, no comparison with it")
endif()
