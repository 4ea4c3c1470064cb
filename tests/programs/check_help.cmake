# Fails unless each of PROGRAMS, called with --help, succeeds and prints its usage.
foreach(program IN LISTS PROGRAMS)
    execute_process(COMMAND "${program}" --help
        RESULT_VARIABLE status OUTPUT_VARIABLE output ERROR_VARIABLE error)
    get_filename_component(name "${program}" NAME)
    if(NOT status STREQUAL "0" OR NOT error STREQUAL "" OR NOT output MATCHES "^Usage: ${name} .*--help")
        message(FATAL_ERROR "${name} --help ends with ${status} and prints:\n${output}${error}")
    endif()
endforeach()
