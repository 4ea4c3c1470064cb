# Fails unless LIBRARY holds the 400 direction tables as constant data of a known size; NM lists its symbols.
execute_process(COMMAND "${NM}" --print-size --demangle "${LIBRARY}" OUTPUT_VARIABLE symbols RESULT_VARIABLE status)
if(NOT status EQUAL 0)
    message(FATAL_ERROR "${NM} ended with ${status}")
endif()

set(total 0)
foreach(nb_points RANGE 1 400)
    string(REGEX REPLACE "^.*(...)$" "\\1" suffix "00${nb_points}")
    string(REGEX MATCHALL "\n[0-9a-f]+ [0-9a-f]+ [a-zA-Z] [^\n]*solveThomsonProblem_${suffix}\\(\\)::tab\n"
        lines "${symbols}")
    if(NOT lines MATCHES "^\n[0-9a-f]+ ([0-9a-f]+) r [^;]*$") # r: a local symbol in a section that is only read
        message(FATAL_ERROR "There should be one constant table ${nb_points}: ${lines}")
    endif()
    math(EXPR size "0x${CMAKE_MATCH_1}")
    math(EXPR expected "16 * ${nb_points}")
    if(NOT size EQUAL expected)
        message(FATAL_ERROR "Table ${nb_points} has ${size} bytes")
    endif()
    math(EXPR total "${total} + ${size}")
endforeach()
if(NOT total EQUAL 1283200)
    message(FATAL_ERROR "The tables have ${total} bytes")
endif()
