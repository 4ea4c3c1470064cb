# Runs PROGRAM with the arguments that are given, and fails unless it succeeds. What it prints is in `output` afterwards.
# Makes FOLDER, which programs write into.
macro(run_program)
    file(MAKE_DIRECTORY "${FOLDER}")
    execute_process(COMMAND "${PROGRAM}" ${ARGN} RESULT_VARIABLE status OUTPUT_VARIABLE output ERROR_VARIABLE error)
    if(NOT status STREQUAL "0")
        message(FATAL_ERROR "The exit status is ${status}: ${error}")
    endif()
endmacro()
