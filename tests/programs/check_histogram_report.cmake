# Fails unless PROGRAM reports the grey values of the coins of PICTURE; writes into FOLDER.
include("${CMAKE_CURRENT_LIST_DIR}/run_program.cmake")
run_program("${PICTURE}" --output "${FOLDER}/histogram_report.svg" --csv "${FOLDER}/histogram_report.csv")

# The background, its brighter part, the coins.
if(NOT output MATCHES "Peaks +38[.0-9]* 8[78][.0-9]* 1(59|60)[.0-9]*\n")
    message(FATAL_ERROR "The peaks are not those of the coins:\n${output}")
endif()
string(REGEX MATCHALL "Cluster  " clusters "${output}")
list(LENGTH clusters nb_clusters)
if(NOT nb_clusters EQUAL 3)
    message(FATAL_ERROR "There are ${nb_clusters} clusters in:\n${output}")
endif()

file(READ "${FOLDER}/histogram_report.svg" picture)
if(NOT picture MATCHES "^(<\\?xml[^>]*>[ \n]*)?<svg.*</svg>[ \n]*$")
    message(FATAL_ERROR "The picture is no SVG")
endif()

# A line for each class, whose populations are all pixels of the picture.
set(nb_pixels 0)
file(STRINGS "${FOLDER}/histogram_report.csv" lines REGEX "^[0-9]+;[0-9]+;[0-9]+;$")
foreach(line IN LISTS lines)
    list(GET line 2 population)
    math(EXPR nb_pixels "${nb_pixels} + ${population}")
endforeach()
if(NOT nb_pixels EQUAL 116352)
    message(FATAL_ERROR "The table holds ${nb_pixels} pixels, not 384 * 303")
endif()
