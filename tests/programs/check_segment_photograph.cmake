# Fails unless PROGRAM cuts PICTURE into six segments and draws them beside it; writes into FOLDER.
include("${CMAKE_CURRENT_LIST_DIR}/run_program.cmake")
run_program("${PICTURE}" --output "${FOLDER}/segment_photograph.png")

# Two pictures of 384 pixels and a gap of 8.
file(READ "${FOLDER}/segment_photograph.png" header LIMIT 24 HEX)
if(NOT header MATCHES "^89504e470d0a1a0a0000000d49484452000003080000012f$")
    message(FATAL_ERROR "The picture is no PNG of 776 x 303 pixels: ${header}")
endif()

# The segments share the pixels out, the largest first.
set(nb_pixels 0)
set(previous 116352)
foreach(label RANGE 5)
    if(NOT output MATCHES "\n +${label} +([0-9]+) +[0-9.]+ +[0-9.]+\n")
        message(FATAL_ERROR "There is no segment ${label} in:\n${output}")
    endif()
    if(CMAKE_MATCH_1 GREATER previous)
        message(FATAL_ERROR "Segment ${label} is larger than the one before it:\n${output}")
    endif()
    set(previous ${CMAKE_MATCH_1})
    math(EXPR nb_pixels "${nb_pixels} + ${CMAKE_MATCH_1}")
endforeach()
if(NOT nb_pixels EQUAL 116352)
    message(FATAL_ERROR "The segments have ${nb_pixels} pixels of 116352")
endif()
