# Runs the real program and compares what it prints, byte for byte, with a file that all builds share:
# ARGUMENTS are the program's, EXPECTED the file, STATUS the exit status. EMULATOR runs the program
# where it is built for another system. Mend an outdated file with:
#   build/native/bin/wmihost ARGUMENTS >EXPECTED
execute_process(COMMAND ${EMULATOR} ${WMIHOST} ${ARGUMENTS} RESULT_VARIABLE status
                OUTPUT_FILE ${WORK}.actual ERROR_VARIABLE errors)
execute_process(COMMAND ${CMAKE_COMMAND} -E compare_files ${EXPECTED} ${WORK}.actual
                RESULT_VARIABLE different)
if(different OR NOT status STREQUAL STATUS)
  message(FATAL_ERROR "wmihost ${ARGUMENTS}: status ${status}, expected ${STATUS}; "
                      "output in ${WORK}.actual, expected ${EXPECTED}\n${errors}")
endif()
