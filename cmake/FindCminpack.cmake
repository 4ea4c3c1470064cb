# Finds cminpack; defines the target Cminpack::Cminpack.
find_path(Cminpack_INCLUDE_DIR cminpack.h PATH_SUFFIXES cminpack-1)
find_library(Cminpack_LIBRARY cminpack)
mark_as_advanced(Cminpack_INCLUDE_DIR Cminpack_LIBRARY)

include(FindPackageHandleStandardArgs)
find_package_handle_standard_args(Cminpack REQUIRED_VARS Cminpack_LIBRARY Cminpack_INCLUDE_DIR)

if(Cminpack_FOUND AND NOT TARGET Cminpack::Cminpack)
    add_library(Cminpack::Cminpack UNKNOWN IMPORTED)
    set_target_properties(Cminpack::Cminpack PROPERTIES
        IMPORTED_LOCATION "${Cminpack_LIBRARY}"
        INTERFACE_INCLUDE_DIRECTORIES "${Cminpack_INCLUDE_DIR}")
endif()
