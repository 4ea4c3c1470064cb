include(GenerateExportHeader)

# Compiler options that every target of the project is built with.
add_library(ovrix_build_options INTERFACE)
target_compile_features(ovrix_build_options INTERFACE cxx_std_17)
target_compile_options(ovrix_build_options INTERFACE
    -Wall -Wextra -Wpedantic -Wshadow -Wnon-virtual-dtor
    # Sums run in the order written, with the same bits on every processor.
    -ffp-contract=off
    # Texts that name a source file give its path within the project.
    "-fmacro-prefix-map=${PROJECT_SOURCE_DIR}/=")
if(OVRIX_WARNINGS_AS_ERRORS)
    target_compile_options(ovrix_build_options INTERFACE -Werror)
endif()
if(OVRIX_BUILD_FUZZERS)
    target_compile_options(ovrix_build_options INTERFACE -fsanitize=fuzzer-no-link)
endif()
if(OVRIX_SANITIZERS)
    target_compile_options(ovrix_build_options INTERFACE
        "-fsanitize=${OVRIX_SANITIZERS}" -fno-sanitize-recover=all -fno-omit-frame-pointer)
    target_link_options(ovrix_build_options INTERFACE "-fsanitize=${OVRIX_SANITIZERS}")
endif()

# Adds one of the project's shared libraries: all sources below the current folder, with the export header
# <NAME>/Export.h that is generated for it, as target OVRIX::<ALIAS>.
function(ovrix_add_library name alias)
    file(GLOB_RECURSE sources CONFIGURE_DEPENDS "${CMAKE_CURRENT_SOURCE_DIR}/*.cpp")
    file(GLOB_RECURSE headers CONFIGURE_DEPENDS "${CMAKE_CURRENT_SOURCE_DIR}/*.h")
    add_library(${name} SHARED ${sources} ${headers})
    add_library(OVRIX::${alias} ALIAS ${name})

    set(generated "${PROJECT_BINARY_DIR}/include")
    string(TOUPPER "${name}_EXPORT" macro)
    generate_export_header(${name} EXPORT_MACRO_NAME ${macro} EXPORT_FILE_NAME "${generated}/${name}/Export.h")

    set_target_properties(${name} PROPERTIES
        EXPORT_NAME ${alias}
        VERSION ${PROJECT_VERSION}
        SOVERSION ${PROJECT_VERSION_MAJOR}
        CXX_EXTENSIONS OFF
        # The installed libraries find each other wherever the tree stands.
        INSTALL_RPATH "$ORIGIN"
        CXX_VISIBILITY_PRESET hidden
        VISIBILITY_INLINES_HIDDEN ON)
    target_compile_features(${name} PUBLIC cxx_std_17)
    target_link_libraries(${name} PRIVATE $<BUILD_INTERFACE:ovrix_build_options>)
    target_link_options(${name} PRIVATE -Wl,--no-undefined)
    if(NOT OVRIX_SANITIZERS)
        # The sanitizers tell types apart by the addresses of their names, and need one of each in a process.
        set(exports "${PROJECT_SOURCE_DIR}/cmake/exports.map")
        target_link_options(${name} PRIVATE "-Wl,--version-script=${exports}")
        set_property(TARGET ${name} APPEND PROPERTY LINK_DEPENDS "${exports}")
    endif()
    if(OVRIX_SANITIZERS AND CMAKE_CXX_COMPILER_ID MATCHES Clang)
        # clang leaves the symbols of its sanitizer runtime to the executable.
        target_link_options(${name} PRIVATE -Wl,-z,undefs)
    endif()
    target_include_directories(${name} PUBLIC
        "$<BUILD_INTERFACE:${PROJECT_SOURCE_DIR}>"
        "$<BUILD_INTERFACE:${generated}>"
        "$<INSTALL_INTERFACE:${CMAKE_INSTALL_INCLUDEDIR}>")

    if(NOT OVRIX_INSTALL)
        return()
    endif()
    install(TARGETS ${name} EXPORT OVRIXMathTargets
        LIBRARY DESTINATION "${CMAKE_INSTALL_LIBDIR}" COMPONENT runtime NAMELINK_COMPONENT development)
    install(DIRECTORY "${CMAKE_CURRENT_SOURCE_DIR}/" DESTINATION "${CMAKE_INSTALL_INCLUDEDIR}/${name}"
        COMPONENT development FILES_MATCHING PATTERN "*.h")
    install(FILES "${generated}/${name}/Export.h" DESTINATION "${CMAKE_INSTALL_INCLUDEDIR}/${name}"
        COMPONENT development)
endfunction()
