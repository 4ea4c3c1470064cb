# Fails unless PROGRAM prints for ARCHIVE what the file EXPECTED holds, ends with STATUS, and writes nothing to its standard
# error, or one line that matches TEXT.
execute_process(COMMAND "${PROGRAM}" "${ARCHIVE}"
    RESULT_VARIABLE status OUTPUT_VARIABLE output ERROR_VARIABLE error)
file(READ "${EXPECTED}" expected)
if(NOT output STREQUAL expected)
    message(FATAL_ERROR "Expecting\n${expected}but the program prints\n${output}")
endif()
if(NOT status STREQUAL "${STATUS}")
    message(FATAL_ERROR "The exit status is ${status}")
endif()
if(TEXT)
    set(TEXT "[^\n]*${TEXT}[^\n]*\n")
endif()
if(NOT error MATCHES "^${TEXT}$")
    message(FATAL_ERROR "Expecting one line with \"${TEXT}\", but the program says: ${error}")
endif()
