# Runs PROGRAM (by EMULATOR where one is given) and compares what it prints with the file EXPECTED, line ends aside.
execute_process(COMMAND ${EMULATOR} ${PROGRAM} OUTPUT_VARIABLE printed RESULT_VARIABLE status)
file(READ ${EXPECTED} expected)
string(REPLACE "\r" "" printed "${printed}")
if(NOT status EQUAL 0 OR NOT printed STREQUAL expected)
  message(FATAL_ERROR "exit status ${status}; printed:\n${printed}\nnot, as in ${EXPECTED}:\n${expected}")
endif()
