# Installs the program, the files that it loads from its own folder, and the documents that it generates.
include(GNUInstallDirs)
if(WIN32)
  install(TARGETS wmihost WiFiAdapterProvider QuarnApi TolvaApi RUNTIME DESTINATION bin)
else()
  set(home ${CMAKE_INSTALL_LIBDIR}/wifi-adapter-provider)
  install(TARGETS wmihost WiFiAdapterProvider QuarnApi TolvaApi platform_native
          RUNTIME DESTINATION ${home} LIBRARY DESTINATION ${home})
  file(MAKE_DIRECTORY ${CMAKE_CURRENT_BINARY_DIR}/link)
  file(CREATE_LINK ../${home}/wmihost ${CMAKE_CURRENT_BINARY_DIR}/link/wmihost SYMBOLIC)
  install(FILES ${CMAKE_CURRENT_BINARY_DIR}/link/wmihost TYPE BIN)
  set(man ${CMAKE_CURRENT_BINARY_DIR}/wmihost.1)
  set(completion ${CMAKE_CURRENT_BINARY_DIR}/wmihost.bash)
  add_custom_command(OUTPUT ${man} ${completion}
    COMMAND sh -c "\"$0\" manual >\"$1\" && \"$0\" completion >\"$2\""
            $<TARGET_FILE:wmihost> ${man} ${completion}
    DEPENDS wmihost VERBATIM)
  add_custom_target(wmihost_documents ALL DEPENDS ${man} ${completion})
  install(FILES ${man} DESTINATION ${CMAKE_INSTALL_MANDIR}/man1)
  install(FILES ${completion} DESTINATION ${CMAKE_INSTALL_DATADIR}/bash-completion/completions
          RENAME wmihost)
endif()
install(DIRECTORY ${CMAKE_SOURCE_DIR}/simulator/scenarios
        DESTINATION ${CMAKE_INSTALL_DATADIR}/wifi-adapter-provider)
install(DIRECTORY ${CMAKE_SOURCE_DIR}/schema
        DESTINATION ${CMAKE_INSTALL_DATADIR}/wifi-adapter-provider FILES_MATCHING PATTERN *.mof)
install(FILES ${SCHEMA_REMOVAL} DESTINATION ${CMAKE_INSTALL_DATADIR}/wifi-adapter-provider/schema)
