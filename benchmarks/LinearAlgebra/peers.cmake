target_sources(${program} PRIVATE "${CMAKE_CURRENT_SOURCE_DIR}/${folder}/LapackePeer.cpp")

# A peer whose library is not found is left out. Peers are compiled with the options that their users get, not with those
# of the project: arithmetic of a peer may be contracted.
function(ovrix_add_decomposition_peer package source library name)
    find_package(${package} QUIET)
    if(NOT ${package}_FOUND)
        message(STATUS "Benchmarks of the decompositions: ${package} not found, no comparison with it")
        return()
    endif()
    add_library(${name} OBJECT "${CMAKE_CURRENT_SOURCE_DIR}/${folder}/${source}")
    target_compile_features(${name} PRIVATE cxx_std_17)
    target_compile_options(${name} PRIVATE -fvisibility=hidden ${ARGN})
    target_link_libraries(${name} PRIVATE ${library})
    target_link_libraries(${program} PRIVATE ${name} ${library})
endfunction()

ovrix_add_decomposition_peer(GSL GslPeer.cpp GSL::gsl ovrix_gsl_decompositions)
ovrix_add_decomposition_peer(dlib DlibPeer.cpp dlib::dlib ovrix_dlib_decompositions)
ovrix_add_decomposition_peer(Eigen3 EigenPeer.cpp Eigen3::Eigen ovrix_eigen_decompositions
    -DOVRIX_EIGEN_PEER="eigen")
ovrix_add_decomposition_peer(Eigen3 EigenPeer.cpp Eigen3::Eigen ovrix_native_eigen_decompositions
    -DOVRIX_EIGEN_PEER="eigenNative" -DEigen=EigenNative -march=native)
