# Fails unless PROGRAM, called with ARGUMENTS, ends with exit status 1 and one line on its standard error that matches TEXT.
execute_process(COMMAND "${PROGRAM}" ${ARGUMENTS}
    RESULT_VARIABLE status OUTPUT_VARIABLE output ERROR_VARIABLE error)
if(NOT status STREQUAL "1")
    message(FATAL_ERROR "The exit status is ${status}")
endif()
if(NOT error MATCHES "^[^\n]*${TEXT}[^\n]*\n$")
    message(FATAL_ERROR "Expecting one line with \"${TEXT}\", but the program says: ${error}")
endif()
