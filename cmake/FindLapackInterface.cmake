# Finds the C interfaces of LAPACK and BLAS, the latter from the serial OpenBLAS; defines the target
# LapackInterface::LapackInterface.
find_path(LapackInterface_LAPACKE_INCLUDE_DIR lapacke.h)
find_library(LapackInterface_LAPACKE_LIBRARY lapacke)
find_path(LapackInterface_CBLAS_INCLUDE_DIR cblas.h
    PATH_SUFFIXES ${CMAKE_LIBRARY_ARCHITECTURE}/openblas-serial openblas-serial openblas)
find_library(LapackInterface_CBLAS_LIBRARY openblas PATH_SUFFIXES openblas-serial)
mark_as_advanced(LapackInterface_LAPACKE_INCLUDE_DIR LapackInterface_LAPACKE_LIBRARY
    LapackInterface_CBLAS_INCLUDE_DIR LapackInterface_CBLAS_LIBRARY)

include(FindPackageHandleStandardArgs)
find_package_handle_standard_args(LapackInterface REQUIRED_VARS
    LapackInterface_LAPACKE_LIBRARY LapackInterface_LAPACKE_INCLUDE_DIR
    LapackInterface_CBLAS_LIBRARY LapackInterface_CBLAS_INCLUDE_DIR)

if(LapackInterface_FOUND AND NOT TARGET LapackInterface::LapackInterface)
    add_library(LapackInterface::LapackInterface INTERFACE IMPORTED)
    set_target_properties(LapackInterface::LapackInterface PROPERTIES
        INTERFACE_INCLUDE_DIRECTORIES
            "${LapackInterface_LAPACKE_INCLUDE_DIR};${LapackInterface_CBLAS_INCLUDE_DIR}"
        INTERFACE_LINK_LIBRARIES "${LapackInterface_LAPACKE_LIBRARY};${LapackInterface_CBLAS_LIBRARY}")
endif()
