# Fails unless PROGRAM finds how the second photograph made from PICTURE lies to the first; writes into FOLDER.
include("${CMAKE_CURRENT_LIST_DIR}/run_program.cmake")
run_program("${PICTURE}" --output "${FOLDER}/register_photographs.png")

# Both photographs and the second one registered twice, beside each other: 4 * 512 + 3 * 8 pixels wide.
file(READ "${FOLDER}/register_photographs.png" header LIMIT 24 HEX)
if(NOT header MATCHES "^89504e470d0a1a0a0000000d494844520000081800000200$")
    message(FATAL_ERROR "The picture is no PNG of 2072 x 512 pixels: ${header}")
endif()

# Half of the 400 matches are right. The homography explains nearly all of them and none of the wrong ones.
foreach(method MSAC MLESAC)
    if(NOT output MATCHES "homography +${method} +([0-9]+) +([0-9]+) +([0-9.]+) pixels")
        message(FATAL_ERROR "There is no homography by ${method} in:\n${output}")
    endif()
    if(CMAKE_MATCH_1 LESS 150 OR CMAKE_MATCH_1 GREATER 202 OR CMAKE_MATCH_2 GREATER 2 OR CMAKE_MATCH_3 GREATER_EQUAL 1)
        message(FATAL_ERROR "The homography by ${method} is not the right one:\n${output}")
    endif()
endforeach()
