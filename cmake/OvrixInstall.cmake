include(CMakePackageConfigHelpers)

set(package_dir "${CMAKE_INSTALL_LIBDIR}/cmake/OVRIXMath")

install(EXPORT OVRIXMathTargets NAMESPACE OVRIX:: DESTINATION "${package_dir}" COMPONENT development)

configure_package_config_file("${PROJECT_SOURCE_DIR}/cmake/OVRIXMathConfig.cmake.in"
    "${PROJECT_BINARY_DIR}/OVRIXMathConfig.cmake"
    INSTALL_DESTINATION "${package_dir}" NO_SET_AND_CHECK_MACRO NO_CHECK_REQUIRED_COMPONENTS_MACRO)
write_basic_package_version_file("${PROJECT_BINARY_DIR}/OVRIXMathConfigVersion.cmake" COMPATIBILITY SameMajorVersion)
install(FILES
    "${PROJECT_BINARY_DIR}/OVRIXMathConfig.cmake"
    "${PROJECT_BINARY_DIR}/OVRIXMathConfigVersion.cmake"
    "${PROJECT_SOURCE_DIR}/cmake/FindLog4cplus.cmake"
    DESTINATION "${package_dir}" COMPONENT development)

# The prefix is told relative to the file's own place, so that the installed tree can be moved.
file(RELATIVE_PATH pkgconfig_to_prefix "/${CMAKE_INSTALL_LIBDIR}/pkgconfig" "/")
string(REGEX REPLACE "/$" "" pkgconfig_to_prefix "${pkgconfig_to_prefix}")
configure_file("${PROJECT_SOURCE_DIR}/cmake/OVRIXMath.pc.in" "${PROJECT_BINARY_DIR}/OVRIXMath.pc" @ONLY)
install(FILES "${PROJECT_BINARY_DIR}/OVRIXMath.pc" DESTINATION "${CMAKE_INSTALL_LIBDIR}/pkgconfig"
    COMPONENT development)

install(FILES "${PROJECT_SOURCE_DIR}/tools/gdb/ovrix_printers.py" DESTINATION "${CMAKE_INSTALL_DATADIR}/ovrixmath/gdb"
    COMPONENT development)
