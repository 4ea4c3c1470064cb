# The problems are those of the tests.
target_sources(${program} PRIVATE "${PROJECT_SOURCE_DIR}/tests/support/NistProblems.cpp")
target_include_directories(${program} PRIVATE "${PROJECT_SOURCE_DIR}/tests")
target_compile_definitions(${program} PRIVATE OVRIX_TEST_DATA_DIR="${PROJECT_SOURCE_DIR}/tests/data")

target_sources(${program} PRIVATE "${CMAKE_CURRENT_SOURCE_DIR}/${folder}/MinpackPeer.cpp")
target_link_libraries(${program} PRIVATE Cminpack::Cminpack)

# A peer whose library is not found is left out.
function(ovrix_add_solver_peer package source library)
    find_package(${package} QUIET)
    if(${package}_FOUND)
        target_sources(${program} PRIVATE "${CMAKE_CURRENT_SOURCE_DIR}/${folder}/${source}")
        target_link_libraries(${program} PRIVATE ${library})
    else()
        message(STATUS "Benchmarks of the solver: ${package} not found, no comparison with it")
    endif()
endfunction()
ovrix_add_solver_peer(Eigen3 EigenPeer.cpp Eigen3::Eigen)
ovrix_add_solver_peer(Ceres CeresPeer.cpp Ceres::ceres)
ovrix_add_solver_peer(GSL GslPeer.cpp GSL::gsl)
ovrix_add_solver_peer(dlib DlibPeer.cpp dlib::dlib)
