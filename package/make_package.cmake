# cmake -DSOURCE=… -DBINARIES=… -DSTAGE=… -DVERSION=… -P make_package.cmake: stages the package's
# files and packs them. The same files give the same archive: fixed order, fixed times, fixed modes.

set(name WiFiAdapterProvider-${VERSION})
set(root ${STAGE}/${name})
file(REMOVE_RECURSE ${STAGE})

function(put destination)
  foreach(file IN LISTS ARGN)
    file(COPY ${file} DESTINATION ${root}/${destination}
         FILE_PERMISSIONS OWNER_READ OWNER_WRITE GROUP_READ WORLD_READ)
  endforeach()
endfunction()

put(. ${BINARIES}/WiFiAdapterProvider.dll ${BINARIES}/wmihost.exe
    ${SOURCE}/schema/wifi_adapter_provider.mof ${SOURCE}/schema/uninstall.mof
    ${SOURCE}/package/Install-WiFiAdapterProvider.ps1
    ${SOURCE}/package/Uninstall-WiFiAdapterProvider.ps1 ${SOURCE}/LICENSE)
file(RENAME ${root}/LICENSE ${root}/LICENSE.txt)
put(docs ${SOURCE}/docs/administrator-guide.md ${SOURCE}/docs/classes.md
    ${SOURCE}/docs/result-codes.md ${SOURCE}/docs/scenarios.md ${SOURCE}/docs/wmihost.md)
# Never beside the product: a simulated adapter must not be taken for a real one.
put(simulator ${BINARIES}/QuarnApi.dll ${BINARIES}/TolvaApi.dll)
file(GLOB scenarios ${SOURCE}/simulator/scenarios/*.json)
put(scenarios ${scenarios})

file(GLOB_RECURSE files RELATIVE ${STAGE} ${STAGE}/*)
list(SORT files)
set(archive ${BINARIES}/../${name}.zip)
file(REMOVE ${archive})
execute_process(
  COMMAND ${CMAKE_COMMAND} -E env TZ=UTC touch -d 2026-01-01T00:00:00 ${files}
  COMMAND_ERROR_IS_FATAL ANY
  WORKING_DIRECTORY ${STAGE})
# Without the extra fields, which hold the times of access.
execute_process(
  COMMAND ${CMAKE_COMMAND} -E env TZ=UTC zip -X -D -q ${archive} ${files}
  COMMAND_ERROR_IS_FATAL ANY
  WORKING_DIRECTORY ${STAGE})
message(STATUS "Package: ${name}.zip")
