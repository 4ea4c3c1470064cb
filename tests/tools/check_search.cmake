# Fails unless a search of PROGRAM finds the sets of 5 and 6 points, keeps them in a file in FOLDER
# and goes on from there.
set(tables "${FOLDER}/searched_tables.txt")
file(REMOVE "${tables}")
execute_process(COMMAND "${PROGRAM}" search "${tables}" --sizes 5-6 --hops 5
    RESULT_VARIABLE status OUTPUT_VARIABLE output ERROR_VARIABLE error)
if(NOT status EQUAL 0)
    message(FATAL_ERROR "The exit status is ${status}: ${error}")
endif()
if(NOT output STREQUAL "5 6.474691495 0.000000000\n6 9.985281374 0.000000000\n")
    message(FATAL_ERROR "The search found ${output}")
endif()

execute_process(COMMAND "${PROGRAM}" search "${tables}" --sizes 5-7 --except 5 --hops 5 --seed 2 OUTPUT_VARIABLE output)
if(NOT output STREQUAL "7 14.452977414 0.000000000\n")
    message(FATAL_ERROR "The second search found ${output}")
endif()
execute_process(COMMAND "${PROGRAM}" energies "${tables}" OUTPUT_VARIABLE output)
if(NOT output STREQUAL "5 6.474691495\n6 9.985281374\n7 14.452977414\n")
    message(FATAL_ERROR "The file holds ${output}")
endif()
