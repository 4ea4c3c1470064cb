# Fails unless PROGRAM succeeds and prints to its output what it announces on its error stream.
execute_process(COMMAND "${PROGRAM}" RESULT_VARIABLE result OUTPUT_VARIABLE output ERROR_VARIABLE announced)
if(NOT result EQUAL 0)
    message(FATAL_ERROR "${PROGRAM} ended with ${result}")
endif()
if(NOT output STREQUAL announced OR output STREQUAL "")
    message(FATAL_ERROR "${PROGRAM} should print\n${announced}but printed\n${output}")
endif()
