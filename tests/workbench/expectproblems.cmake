# cmake -P script: runs CHECK on FILES ('|'-separated) and expects exit status 1 with the one
# problem of broken.qprj, placed by line and column.
string(REPLACE "|" ";" files "${FILES}")
execute_process(COMMAND ${CHECK} ${files} RESULT_VARIABLE result OUTPUT_VARIABLE output)
set(expected "broken\\.qprj:3:[0-9]+: <item> lacks the attribute \"name\"\n$")
if(NOT result EQUAL 1 OR NOT output MATCHES "${expected}")
    message(FATAL_ERROR "exit status ${result}, output:\n${output}")
endif()
