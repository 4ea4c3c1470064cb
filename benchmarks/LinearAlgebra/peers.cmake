target_sources(${program} PRIVATE "${CMAKE_CURRENT_SOURCE_DIR}/${folder}/LapackePeer.cpp")

# A peer whose library is not found is left out. Peers are compiled with the options that their users get, not with those
# of the project: arithmetic of a peer may be contracted.
function(ovrix_add_decomposition_peer name package library)
    cmake_parse_arguments(PARSE_ARGV 3 PEER "" "" "SOURCES;OPTIONS")
    find_package(${package} QUIET)
    if(NOT ${package}_FOUND)
        message(STATUS "Benchmarks of the decompositions: ${package} not found, no comparison with it")
        return()
    endif()
    list(TRANSFORM PEER_SOURCES PREPEND "${CMAKE_CURRENT_SOURCE_DIR}/${folder}/")
    add_library(${name} OBJECT ${PEER_SOURCES})
    target_compile_features(${name} PRIVATE cxx_std_17)
    target_compile_options(${name} PRIVATE -fvisibility=hidden ${PEER_OPTIONS})
    target_link_libraries(${name} PRIVATE ${library})
    target_link_libraries(${program} PRIVATE ${name} ${library})
endfunction()

ovrix_add_decomposition_peer(ovrix_gsl_decompositions GSL GSL::gsl SOURCES GslPeer.cpp)
ovrix_add_decomposition_peer(ovrix_dlib_decompositions dlib dlib::dlib SOURCES DlibPeer.cpp)

set(eigen_sources EigenEigenvaluePeer.cpp EigenFactorizationPeer.cpp EigenSingularValuePeer.cpp)
ovrix_add_decomposition_peer(ovrix_eigen_decompositions Eigen3 Eigen3::Eigen
    SOURCES ${eigen_sources} OPTIONS -DOVRIX_EIGEN_PEER="eigen")
ovrix_add_decomposition_peer(ovrix_native_eigen_decompositions Eigen3 Eigen3::Eigen
    SOURCES ${eigen_sources} OPTIONS -DOVRIX_EIGEN_PEER="eigenNative" -DEigen=EigenNative -march=native)
