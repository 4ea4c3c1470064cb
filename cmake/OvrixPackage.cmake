# Debian packages, which scripts/package makes: the libraries, what programs are built with, and the debug symbols.

set(OVRIX_PACKAGE_CONTACT "OVRIXMath developers <ovrixmath@packages.invalid>" CACHE STRING
    "Maintainer that the Debian packages name")

set(CPACK_GENERATOR DEB)
set(CPACK_PACKAGE_NAME ovrixmath)
set(CPACK_PACKAGE_CONTACT "${OVRIX_PACKAGE_CONTACT}")
set(CPACK_PACKAGING_INSTALL_PREFIX /usr)
set(CPACK_COMPONENTS_ALL runtime development debug)
set(CPACK_STRIP_FILES ON)
set(CPACK_DEB_COMPONENT_INSTALL ON)
# Each package has a summary of its own, as the first line of its description.
set(CPACK_PACKAGE_DESCRIPTION_SUMMARY "")
set(CPACK_DEBIAN_FILE_NAME DEB-DEFAULT)
set(CPACK_DEBIAN_PACKAGE_RELEASE 1)

set(description "Dense decompositions, non-linear least squares, robust estimation, geometry and
its transforms, assignment, clustering and histograms, with results that are
the same bits on every processor.
")

set(runtime_package "libovrixmath${PROJECT_VERSION_MAJOR}")
set(CPACK_DEBIAN_RUNTIME_PACKAGE_NAME "${runtime_package}")
set(CPACK_DEBIAN_RUNTIME_PACKAGE_SECTION libs)
# The dependencies of the libraries ask for any OpenBLAS; this keeps apt from taking the one with threads.
set(CPACK_DEBIAN_RUNTIME_PACKAGE_DEPENDS libopenblas0-serial)
set(CPACK_DEBIAN_RUNTIME_PACKAGE_SHLIBDEPS ON)
set(CPACK_DEBIAN_RUNTIME_PACKAGE_CONTROL_EXTRA
    "${PROJECT_SOURCE_DIR}/cmake/debian/triggers" "${PROJECT_BINARY_DIR}/debian/shlibs")
set(CPACK_DEBIAN_RUNTIME_DESCRIPTION "numerical library for image processing
${description}
This package holds the shared libraries.")

set(same_runtime "${runtime_package} (= ${PROJECT_VERSION}-${CPACK_DEBIAN_PACKAGE_RELEASE})")

# What the headers include, and what the CMake and pkg-config packages look for.
set(development_package libovrixmath-dev)
set(CPACK_DEBIAN_DEVELOPMENT_PACKAGE_NAME "${development_package}")
set(CPACK_DEBIAN_DEVELOPMENT_PACKAGE_SECTION libdevel)
string(CONCAT CPACK_DEBIAN_DEVELOPMENT_PACKAGE_DEPENDS
    "${same_runtime}, "
    "libboost-dev (>= 1.74), libboost-filesystem-dev (>= 1.74), libboost-thread-dev (>= 1.74), liblog4cplus-dev")
set(CPACK_DEBIAN_DEVELOPMENT_DESCRIPTION "numerical library for image processing (development files)
${description}
This package holds the headers, the files by which CMake and pkg-config find
the libraries, and printers of their types for gdb.")

set(debug_package "${runtime_package}-dbgsym")
set(CPACK_DEBIAN_DEBUG_PACKAGE_NAME "${debug_package}")
set(CPACK_DEBIAN_DEBUG_PACKAGE_SECTION debug)
set(CPACK_DEBIAN_DEBUG_PACKAGE_DEPENDS "${same_runtime}")
set(CPACK_DEBIAN_DEBUG_DESCRIPTION "debug symbols for ${runtime_package}
This package holds what debuggers want to know of the shared libraries.")

# Adds files to a package that other installed trees do without.
function(ovrix_package_files component destination)
    install(FILES ${ARGN} DESTINATION "${destination}" COMPONENT ${component} EXCLUDE_FROM_ALL)
endfunction()

set(debian_dir "${PROJECT_BINARY_DIR}/debian")
file(MAKE_DIRECTORY "${debian_dir}")
configure_file("${PROJECT_SOURCE_DIR}/cmake/debian/changelog.in" "${debian_dir}/changelog.Debian" @ONLY)
configure_file("${PROJECT_SOURCE_DIR}/cmake/debian/shlibs.in" "${debian_dir}/shlibs" @ONLY)
configure_file("${PROJECT_SOURCE_DIR}/CHANGELOG.md" "${debian_dir}/changelog" COPYONLY)
foreach(file changelog changelog.Debian)
    execute_process(COMMAND gzip -9n --stdout "${debian_dir}/${file}" OUTPUT_FILE "${debian_dir}/${file}.gz")
endforeach()
foreach(component runtime development debug)
    set(package "${${component}_package}")
    ovrix_package_files(${component} "share/doc/${package}"
        "${debian_dir}/changelog.gz" "${debian_dir}/changelog.Debian.gz"
        "${PROJECT_SOURCE_DIR}/cmake/debian/copyright")
    configure_file("${PROJECT_SOURCE_DIR}/cmake/debian/${component}.overrides" "${debian_dir}/${package}" COPYONLY)
    ovrix_package_files(${component} share/lintian/overrides "${debian_dir}/${package}")
endforeach()
ovrix_package_files(development "share/doc/${development_package}/examples"
    "${PROJECT_SOURCE_DIR}/examples/first_program.cpp")

# gdb loads what stands here together with the library.
install(FILES "${PROJECT_SOURCE_DIR}/tools/gdb/ovrix_printers.py"
    DESTINATION "share/gdb/auto-load/usr/${CMAKE_INSTALL_LIBDIR}"
    RENAME "libOVRIXMath.so.${PROJECT_VERSION}-gdb.py" COMPONENT development EXCLUDE_FROM_ALL)

# The symbols go where debuggers look for them by the id of a build.
foreach(library OVRIXUtil OVRIXSerialization OVRIXMath)
    install(CODE "
        execute_process(COMMAND \"${CMAKE_READELF}\" --notes \"$<TARGET_FILE:${library}>\" OUTPUT_VARIABLE notes)
        string(REGEX REPLACE \".*Build ID: (..)([0-9a-f]+).*\" \"\\\\1/\\\\2\" id \"\${notes}\")
        set(file \"\$ENV{DESTDIR}\${CMAKE_INSTALL_PREFIX}/lib/debug/.build-id/\${id}.debug\")
        get_filename_component(folder \"\${file}\" DIRECTORY)
        file(MAKE_DIRECTORY \"\${folder}\")
        execute_process(COMMAND \"${CMAKE_OBJCOPY}\" --only-keep-debug --compress-debug-sections
            \"$<TARGET_FILE:${library}>\" \"\${file}\" COMMAND_ERROR_IS_FATAL ANY)
        file(CHMOD \"\${file}\" PERMISSIONS OWNER_READ OWNER_WRITE GROUP_READ WORLD_READ)"
        COMPONENT debug EXCLUDE_FROM_ALL)
endforeach()

include(CPack)
