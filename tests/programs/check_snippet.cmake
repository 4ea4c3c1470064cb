# Fails unless the file DOCUMENT holds the whole content of the file SNIPPET.
file(READ "${DOCUMENT}" document)
file(READ "${SNIPPET}" snippet)
string(FIND "${document}" "${snippet}" position)
if(position EQUAL -1)
    message(FATAL_ERROR "${DOCUMENT} does not show ${SNIPPET} as it is")
endif()
