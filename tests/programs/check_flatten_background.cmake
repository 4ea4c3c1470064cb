# Fails unless PROGRAM tells the coins of PICTURE from their background; writes into FOLDER.
include("${CMAKE_CURRENT_LIST_DIR}/run_program.cmake")
run_program("${PICTURE}" --output "${FOLDER}/flatten_background.png" --csv "${FOLDER}/flatten_background.csv")

# A photograph, the light, the flattened photograph and the outliers beside each other: 4 * 384 + 3 * 8 pixels wide.
file(READ "${FOLDER}/flatten_background.png" header LIMIT 24 HEX)
if(NOT header MATCHES "^89504e470d0a1a0a0000000d49484452000006180000012f$")
    message(FATAL_ERROR "The picture is no PNG of 1560 x 303 pixels: ${header}")
endif()

foreach(place "154;51;1" "154;126;1" "347;186;1" "47;260;1" "60;85;0" "130;160;0" "200;90;0" "10;150;0")
    list(GET place 0 x)
    list(GET place 1 y)
    list(GET place 2 outlier)
    file(STRINGS "${FOLDER}/flatten_background.csv" line REGEX "^${x};${y};[0-9]+;[0-9]+;[0-9]+;${outlier}$")
    if(NOT line)
        message(FATAL_ERROR "The pixel at ${x}, ${y} should have the outlier flag ${outlier}")
    endif()
endforeach()
