# Finds rapidcheck; defines the target RapidCheck::RapidCheck.
find_path(RapidCheck_INCLUDE_DIR rapidcheck.h)
find_library(RapidCheck_LIBRARY rapidcheck)
mark_as_advanced(RapidCheck_INCLUDE_DIR RapidCheck_LIBRARY)

include(FindPackageHandleStandardArgs)
find_package_handle_standard_args(RapidCheck REQUIRED_VARS RapidCheck_LIBRARY RapidCheck_INCLUDE_DIR)

if(RapidCheck_FOUND AND NOT TARGET RapidCheck::RapidCheck)
    add_library(RapidCheck::RapidCheck UNKNOWN IMPORTED)
    set_target_properties(RapidCheck::RapidCheck PROPERTIES
        IMPORTED_LOCATION "${RapidCheck_LIBRARY}"
        INTERFACE_INCLUDE_DIRECTORIES "${RapidCheck_INCLUDE_DIR}")
endif()
