include(CMakePackageConfigHelpers)

set(package_dir "${CMAKE_INSTALL_LIBDIR}/cmake/OVRIXMath")

install(EXPORT OVRIXMathTargets NAMESPACE OVRIX:: DESTINATION "${package_dir}" COMPONENT development)

write_basic_package_version_file("${PROJECT_BINARY_DIR}/OVRIXMathConfigVersion.cmake" COMPATIBILITY SameMajorVersion)
install(FILES
    "${PROJECT_SOURCE_DIR}/cmake/OVRIXMathConfig.cmake"
    "${PROJECT_BINARY_DIR}/OVRIXMathConfigVersion.cmake"
    "${PROJECT_SOURCE_DIR}/cmake/FindLog4cplus.cmake"
    DESTINATION "${package_dir}" COMPONENT development)

# The prefix is told relative to the file's own place, so that the installed tree can be moved, unless the folders were
# given as absolute ones.
if(IS_ABSOLUTE "${CMAKE_INSTALL_LIBDIR}")
    set(pkgconfig_prefix "${CMAKE_INSTALL_PREFIX}")
else()
    file(RELATIVE_PATH pkgconfig_to_prefix "/${CMAKE_INSTALL_LIBDIR}/pkgconfig" "/")
    string(REGEX REPLACE "/$" "" pkgconfig_to_prefix "${pkgconfig_to_prefix}")
    set(pkgconfig_prefix "\${pcfiledir}/${pkgconfig_to_prefix}")
endif()
foreach(folder LIBDIR INCLUDEDIR)
    if(IS_ABSOLUTE "${CMAKE_INSTALL_${folder}}")
        set(pkgconfig_${folder} "${CMAKE_INSTALL_${folder}}")
    else()
        set(pkgconfig_${folder} "\${prefix}/${CMAKE_INSTALL_${folder}}")
    endif()
endforeach()
configure_file("${PROJECT_SOURCE_DIR}/cmake/OVRIXMath.pc.in" "${PROJECT_BINARY_DIR}/OVRIXMath.pc" @ONLY)
install(FILES "${PROJECT_BINARY_DIR}/OVRIXMath.pc" DESTINATION "${CMAKE_INSTALL_LIBDIR}/pkgconfig"
    COMPONENT development)

install(FILES "${PROJECT_SOURCE_DIR}/tools/gdb/ovrix_printers.py" DESTINATION "${CMAKE_INSTALL_DATADIR}/ovrixmath/gdb"
    COMPONENT development)
