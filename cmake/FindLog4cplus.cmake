# Finds log4cplus; defines the target Log4cplus::Log4cplus.
find_path(Log4cplus_INCLUDE_DIR log4cplus/logger.h)
find_library(Log4cplus_LIBRARY log4cplus)
mark_as_advanced(Log4cplus_INCLUDE_DIR Log4cplus_LIBRARY)

include(FindPackageHandleStandardArgs)
find_package_handle_standard_args(Log4cplus REQUIRED_VARS Log4cplus_LIBRARY Log4cplus_INCLUDE_DIR)

if(Log4cplus_FOUND AND NOT TARGET Log4cplus::Log4cplus)
    add_library(Log4cplus::Log4cplus UNKNOWN IMPORTED)
    set_target_properties(Log4cplus::Log4cplus PROPERTIES
        IMPORTED_LOCATION "${Log4cplus_LIBRARY}"
        INTERFACE_INCLUDE_DIRECTORIES "${Log4cplus_INCLUDE_DIR}")
endif()
