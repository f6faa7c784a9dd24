# expected_output(NAME FILE file [SECTION section] [STATUS status] COMMAND program argument…): declares a
# test that COMMAND prints the content of FILE, the same in every build. All expected outputs are
# declared with it, and ./test.sh --mend rebuilds all of them. FILE is relative to the source folder.
# With a SECTION only its lines between <!-- begin SECTION --> and <!-- end SECTION --> are compared.
# Program is a target or a script. STATUS is the exit status, 0 if left out.

add_custom_target(expected_outputs)  # the programs that print them

function(expected_output name)
  cmake_parse_arguments(PARSE_ARGV 1 row "" "FILE;SECTION;STATUS" "COMMAND")
  if(NOT row_STATUS)
    set(row_STATUS 0)
  endif()
  set(command)
  foreach(word IN LISTS row_COMMAND)
    if(TARGET "${word}")
      add_dependencies(expected_outputs ${word})
      list(APPEND command ${CMAKE_CROSSCOMPILING_EMULATOR} $<TARGET_FILE:${word}>)
    else()
      list(APPEND command "${word}")
    endif()
  endforeach()
  set(file ${CMAKE_SOURCE_DIR}/${row_FILE})
  add_test(NAME ${name}
           COMMAND ${CMAKE_SOURCE_DIR}/cmake/expected_output.sh ${name} ${file} "${row_SECTION}"
                   ${row_STATUS} ${CMAKE_BINARY_DIR}/expected_outputs ${command})
  # Several sections of one file must not be written at the same time.
  set_tests_properties(${name} PROPERTIES LABELS expected_output RESOURCE_LOCK ${file}
                       ENVIRONMENT SOURCE_DATE_EPOCH=0)
endfunction()
