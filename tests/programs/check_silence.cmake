# Fails unless PROGRAM succeeds and prints nothing.
execute_process(COMMAND "${PROGRAM}" RESULT_VARIABLE result OUTPUT_VARIABLE output ERROR_VARIABLE error)
if(NOT result EQUAL 0)
    message(FATAL_ERROR "${PROGRAM} ended with ${result}")
endif()
if(NOT "${output}${error}" STREQUAL "")
    message(FATAL_ERROR "${PROGRAM} should be silent, but printed\n${output}${error}")
endif()
