# Fails unless GDB with PRINTERS prints the variables of PROGRAM as the file EXPECTED shows.
set(commands "")
foreach(command
        "set width 0" "set confirm off" "source ${PRINTERS}" "break stop" "run" "up"
        "print vector" "print pair" "print matrix" "print square" "print nothing" "print noRows"
        "print success" "print failure" "print number")
    list(APPEND commands -ex "${command}")
endforeach()
execute_process(COMMAND "${GDB}" --nx --batch ${commands} "${PROGRAM}"
    RESULT_VARIABLE result OUTPUT_VARIABLE output ERROR_VARIABLE errors)
string(REGEX MATCHALL "\\$[0-9]+ = [^\n]*\n" printed "${output}")
string(REPLACE ";" "" printed "${printed}")
file(READ "${EXPECTED}" expected)
if(NOT printed STREQUAL expected)
    message(FATAL_ERROR "gdb should print\n${expected}but printed\n${output}${errors}")
endif()
