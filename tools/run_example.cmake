# Runs an example program and compares its output with the expected file.
execute_process(COMMAND ${PROG} OUTPUT_FILE ${OUT} RESULT_VARIABLE rc)
if(NOT rc EQUAL 0)
  message(FATAL_ERROR "${PROG} exited with ${rc}")
endif()
execute_process(COMMAND ${CMP} ${EXPECTED} ${OUT} RESULT_VARIABLE rc)
if(NOT rc EQUAL 0)
  message(FATAL_ERROR "output of ${PROG} differs from ${EXPECTED}")
endif()
