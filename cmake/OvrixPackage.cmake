# Debian packages, which scripts/package makes: the libraries, what programs are built with, and the debug symbols.

set(OVRIX_PACKAGE_CONTACT "OVRIXMath developers <ovrixmath@packages.invalid>" CACHE STRING
    "Maintainer that the Debian packages name")

set(CPACK_GENERATOR DEB)
set(CPACK_PACKAGE_NAME ovrixmath)
set(CPACK_PACKAGE_CONTACT "${OVRIX_PACKAGE_CONTACT}")
set(CPACK_PACKAGING_INSTALL_PREFIX /usr)
set(CPACK_COMPONENTS_ALL runtime development)
set(CPACK_DEB_COMPONENT_INSTALL ON)
set(CPACK_DEBIAN_FILE_NAME DEB-DEFAULT)
set(CPACK_DEBIAN_PACKAGE_RELEASE 1)

set(runtime_package "libovrixmath${PROJECT_VERSION_MAJOR}")
set(CPACK_DEBIAN_RUNTIME_PACKAGE_NAME "${runtime_package}")
set(CPACK_DEBIAN_RUNTIME_PACKAGE_SECTION libs)
set(CPACK_DEBIAN_RUNTIME_PACKAGE_SHLIBDEPS ON)
set(CPACK_DEBIAN_PACKAGE_GENERATE_SHLIBS ON)
set(CPACK_DEBIAN_PACKAGE_GENERATE_SHLIBS_POLICY ">=")
set(CPACK_DEBIAN_RUNTIME_DEBUGINFO_PACKAGE ON)
set(CPACK_DEBIAN_RUNTIME_DESCRIPTION "numerical library for image processing
 Dense decompositions, non-linear least squares, robust estimation, geometry and
 its transforms, assignment, clustering and histograms, with results that are
 the same bits on every processor.
 .
 This package holds the shared libraries.")

# What the headers include, and what the CMake and pkg-config packages look for.
set(development_package libovrixmath-dev)
set(CPACK_DEBIAN_DEVELOPMENT_PACKAGE_NAME "${development_package}")
set(CPACK_DEBIAN_DEVELOPMENT_PACKAGE_SECTION libdevel)
string(CONCAT CPACK_DEBIAN_DEVELOPMENT_PACKAGE_DEPENDS
    "${runtime_package} (= ${PROJECT_VERSION}-${CPACK_DEBIAN_PACKAGE_RELEASE}), "
    "libboost-dev (>= 1.74), libboost-filesystem-dev (>= 1.74), libboost-thread-dev (>= 1.74), liblog4cplus-dev")
set(CPACK_DEBIAN_DEVELOPMENT_DESCRIPTION "numerical library for image processing (development files)
 Dense decompositions, non-linear least squares, robust estimation, geometry and
 its transforms, assignment, clustering and histograms, with results that are
 the same bits on every processor.
 .
 This package holds the headers, the files by which CMake and pkg-config find
 the libraries, and printers of its types for gdb.")

# Adds files to a package that other installed trees do without.
function(ovrix_package_files component destination)
    install(FILES ${ARGN} DESTINATION "${destination}" COMPONENT ${component} EXCLUDE_FROM_ALL)
endfunction()

set(debian_dir "${PROJECT_BINARY_DIR}/debian")
file(MAKE_DIRECTORY "${debian_dir}")
configure_file("${PROJECT_SOURCE_DIR}/cmake/debian/changelog.in" "${debian_dir}/changelog.Debian" @ONLY)
configure_file("${PROJECT_SOURCE_DIR}/CHANGELOG.md" "${debian_dir}/changelog" COPYONLY)
foreach(file changelog changelog.Debian)
    execute_process(COMMAND gzip -9n --stdout "${debian_dir}/${file}" OUTPUT_FILE "${debian_dir}/${file}.gz")
endforeach()
foreach(component runtime development)
    ovrix_package_files(${component} "share/doc/${${component}_package}"
        "${debian_dir}/changelog.gz" "${debian_dir}/changelog.Debian.gz"
        "${PROJECT_SOURCE_DIR}/cmake/debian/copyright")
endforeach()
configure_file("${PROJECT_SOURCE_DIR}/cmake/debian/overrides" "${debian_dir}/${runtime_package}" COPYONLY)
ovrix_package_files(runtime share/lintian/overrides "${debian_dir}/${runtime_package}")
ovrix_package_files(development "share/doc/${development_package}/examples"
    "${PROJECT_SOURCE_DIR}/examples/first_program.cpp")

include(CPack)
