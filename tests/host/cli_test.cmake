# Runs the real program with the real provider: arguments, exit status, and what must stand on
# standard output and standard error (regular expressions). WMIHOST names the program, EMULATOR runs
# it where it is built for another system, WORK is a folder for scratch files.

function(check)
  cmake_parse_arguments(PARSE_ARGV 0 row "" "STATUS;OUT;ERR" "RUN")
  execute_process(COMMAND ${EMULATOR} ${WMIHOST} ${row_RUN} RESULT_VARIABLE status
                  OUTPUT_VARIABLE out ERROR_VARIABLE err)
  if(NOT status STREQUAL row_STATUS OR NOT "${out}" MATCHES "${row_OUT}"
     OR NOT "${err}" MATCHES "${row_ERR}")
    message(SEND_ERROR "wmihost ${row_RUN}\nstatus ${status}, expected ${row_STATUS}\n"
                       "output, expected ${row_OUT}:\n${out}\nerrors, expected ${row_ERR}:\n${err}")
  endif()
endfunction()

set(adapter WiFi_NetworkAdapter)
set(none "^$")

check(RUN --version STATUS 0 OUT "^wmihost [0-9]+\\.[0-9]+\\.[0-9]+\n$" ERR ${none})
check(RUN --help STATUS 0 OUT "enum .*shell " ERR ${none})
check(RUN classes --format csv STATUS 0 OUT "^Name,Description\n${adapter}," ERR ${none})
check(RUN describe ${adapter} STATUS 0 OUT "property RadioState: boolean" ERR ${none})
check(RUN enum ${adapter} --format json --fields DeviceID STATUS 0
      OUT "^\\[\n  {\n    \"DeviceID\": \"[^\"]+\"\n  }" ERR ${none})
check(RUN --format csv enum wifi_networkadapter --fields Band STATUS 0 OUT "^Band\n802.11" ERR ${none})
check(RUN enum ${adapter} --trace --fields DeviceID STATUS 0 OUT "DeviceID"
      ERR "Filling adapter information for WiFi_NetworkAdapter\r?\n")
check(RUN enum ${adapter} --os-version 5.1 --format json STATUS 0 OUT "RegistrationState" ERR ${none})
check(RUN query "SELECT DeviceID FROM ${adapter} WHERE DeviceID IS NULL" --format json STATUS 0
      OUT "^\\[\\]\n$" ERR ${none})
check(RUN query "SELECT * FROM ${adapter} WHERE" STATUS 2 OUT ${none} ERR "^wmihost: query: character")
check(RUN enum Nothing STATUS 3 OUT ${none} ERR "^wmihost: Nothing: WBEM_E_INVALID_CLASS")
check(RUN get "${adapter}.DeviceID=\"none\"" STATUS 3 OUT ${none} ERR "WBEM_E_NOT_FOUND")
check(RUN delete "${adapter}.DeviceID=\"1\"" STATUS 4 OUT ${none} ERR "WBEM_E_NOT_SUPPORTED")
check(RUN put "${adapter}.DeviceID=\"1\"" "Band=x" STATUS 2 OUT ${none} ERR "it takes RadioState")
check(RUN fly STATUS 2 OUT ${none} ERR "^wmihost: [^\n]*fly")
check(RUN enum ${adapter} --format xml STATUS 2 OUT ${none} ERR "table, list, json or csv")
check(RUN --scenario ${WORK}/missing.json classes STATUS 2 OUT ${none} ERR "missing.json")
check(RUN --module ${WORK}/missing.dll enum ${adapter} STATUS 4 OUT ${none} ERR "cannot be loaded")

file(WRITE ${WORK}/commands.txt "# two commands, one provider\nclasses --format csv\n"
                                "enum ${adapter} --fields DeviceID\nfly\n")
check(RUN shell ${WORK}/commands.txt --format csv STATUS 2 OUT "Description\n.*DeviceID\n"
      ERR "commands.txt:4: ")

# The registration, in a registry that a file keeps; where the system has one of its own, the
# package's test goes through it.
if(NOT EMULATOR)
  set(registry ${WORK}/registry.json)
  file(REMOVE ${registry})
  check(RUN --registered enum WiFi_SystemPolicies STATUS 4 OUT ${none} ERR "not registered")
  check(RUN --registry ${registry} register STATUS 0 OUT ${none} ERR ${none})
  check(RUN --registry ${registry} --registered enum WiFi_SystemPolicies --fields Caption
        STATUS 0 OUT "System Policies" ERR ${none})
  check(RUN --registry ${registry} unregister STATUS 0 OUT ${none} ERR ${none})
  check(RUN --registry ${registry} unregister STATUS 0 OUT ${none} ERR ${none})
  check(RUN --registry ${registry} --registered enum WiFi_SystemPolicies
        STATUS 4 OUT ${none} ERR "not registered")
  check(RUN --registry ${WORK}/no/such/folder/file register STATUS 2 OUT ${none} ERR "--registry")
endif()
check(RUN --libraries ${WORK}/none enum WiFi_SystemPolicies STATUS 4 OUT ${none} ERR "QuarnApi")
