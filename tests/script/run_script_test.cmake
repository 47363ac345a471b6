# Runs one driver script and compares its output and exit status with the
# expected file: the output lines, then a last line "exit N".
execute_process(
  COMMAND ${DRIVER} ${SCRIPT}
  OUTPUT_VARIABLE actual
  ERROR_VARIABLE errors
  RESULT_VARIABLE status)
string(APPEND actual "exit ${status}\n")
file(READ ${EXPECTED} expected)
if(NOT actual STREQUAL expected)
  file(WRITE ${ACTUAL_OUT} "${actual}")
  execute_process(COMMAND diff -u ${EXPECTED} ${ACTUAL_OUT})
  message(FATAL_ERROR "output differs from ${EXPECTED} (actual in ${ACTUAL_OUT}) ${errors}")
endif()
