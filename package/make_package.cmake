# cmake -DSOURCE=… -DBINARIES=… -DSCHEMA=… -DSTAGE=… -DOUTPUT=… -DVERSION=… -DOBJDUMP=… [-DSIGN=…] -P
# make_package.cmake: stages the package's files and builds from them, in OUTPUT, the archive, the
# archive of the debug symbols and the installer. The same files give the same archives and the same
# installer: fixed order, fixed times, fixed modes. SIGN is a list of osslsigncode's options that name certificate and key; the
# provider, the host, the simulated libraries and the installer are signed with them.
cmake_minimum_required(VERSION 3.25)

set(name WiFiAdapterProvider-${VERSION})
set(root ${STAGE}/${name})
file(REMOVE_RECURSE ${STAGE})

function(put destination)
  foreach(file IN LISTS ARGN)
    file(COPY ${file} DESTINATION ${destination}
         FILE_PERMISSIONS OWNER_READ OWNER_WRITE GROUP_READ WORLD_READ)
  endforeach()
endfunction()
function(run)
  execute_process(COMMAND ${ARGN} COMMAND_ERROR_IS_FATAL ANY WORKING_DIRECTORY ${STAGE}
                  OUTPUT_QUIET)
endfunction()
function(sign file)
  if(SIGN)
    run(osslsigncode sign ${SIGN} -h sha256 -n "WiFi Adapter Provider" -in ${file} -out ${file}.signed)
    file(RENAME ${file}.signed ${file})
  endif()
endfunction()
function(pack folder)
  file(GLOB_RECURSE files RELATIVE ${STAGE} ${STAGE}/${folder}/*)
  list(SORT files)
  set(archive ${OUTPUT}/${folder}.zip)
  file(REMOVE ${archive})
  run(${CMAKE_COMMAND} -E env TZ=UTC touch -d 2026-01-01T00:00:00 ${files})
  # Without the extra fields, which contain access times.
  run(${CMAKE_COMMAND} -E env TZ=UTC zip -X -D -q ${archive} ${files})
  message(STATUS "Package: ${folder}.zip")
endfunction()

put(${root} ${BINARIES}/WiFiAdapterProvider.dll ${BINARIES}/wmihost.exe
    ${SOURCE}/schema/wifi_adapter_provider.mof ${SCHEMA}
    ${SOURCE}/LICENSE ${SOURCE}/package/README.txt ${SOURCE}/package/THIRD-PARTY-NOTICES.txt)
file(RENAME ${root}/LICENSE ${root}/LICENSE.txt)
put(${root}/docs ${SOURCE}/docs/administrator-guide.md ${SOURCE}/docs/fleet-guide.md
    ${SOURCE}/docs/classes.md
    ${SOURCE}/docs/result-codes.md ${SOURCE}/docs/scenarios.md ${SOURCE}/docs/wmihost.md)
file(COPY ${SOURCE}/integrations DESTINATION ${root}
     FILE_PERMISSIONS OWNER_READ OWNER_WRITE GROUP_READ WORLD_READ)
# Never next to the product: a simulated adapter must not be taken for a real one.
put(${root}/simulator ${BINARIES}/QuarnApi.dll ${BINARIES}/TolvaApi.dll)
file(GLOB scenarios ${SOURCE}/simulator/scenarios/*.json)
put(${root}/scenarios ${scenarios})
foreach(file WiFiAdapterProvider.dll wmihost.exe simulator/QuarnApi.dll simulator/TolvaApi.dll)
  sign(${root}/${file})
endforeach()
pack(${name})

foreach(file WiFiAdapterProvider.dll wmihost.exe QuarnApi.dll TolvaApi.dll)
  put(${STAGE}/${name}-symbols ${BINARIES}/${file}.debug)
endforeach()
pack(${name}-symbols)

# Each version is a separate product that replaces the earlier ones. Its package code is made of the
# content, and the clock stands still.
string(UUID product NAMESPACE 0e0a9f2c-6c1b-4b0b-9b5b-6c4e1f6a9d37 NAME ${VERSION} TYPE SHA1 UPPER)
set(installer ${OUTPUT}/${name}.msi)
execute_process(
  COMMAND ${CMAKE_COMMAND} -E env TZ=UTC faketime -f "2026-01-01 00:00:00"
          wixl -a x64 -D Version=${VERSION} -D ProductCode={${product}} -o ${installer}
          ${SOURCE}/package/installer.wxs
  COMMAND_ERROR_IS_FATAL ANY
  WORKING_DIRECTORY ${root})
# Sets what wixl leaves out: the Undo… actions run only after a failure, the options reach the installing
# service, and two files get their versions. Without a version an installer keeps a file of any version that
# it finds.
set(rollback 3442)  # a program named by a property; ignore its status; in the script, on rollback, as the system
run(msibuild ${installer} -q
    "UPDATE `CustomAction` SET `Type`=${rollback} WHERE `Action`='UndoCompileSchema'")
run(msibuild ${installer} -q
    "UPDATE `CustomAction` SET `Type`=${rollback} WHERE `Action`='UndoRemoveSchema'")
set(options WIX_DOWNGRADE_DETECTED WIX_UPGRADE_DETECTED REGISTEREDMODULE)
foreach(option INSTALLDIR ADMINSONLY AUTORECOVER KEEPSCHEMA)
  list(APPEND options ${option} KEPT${option})
endforeach()
list(JOIN options "\\;" options)
run(msibuild ${installer} -q
    "UPDATE `Property` SET `Value`='${options}' WHERE `Property`='SecureCustomProperties'")
foreach(file Module Host)
  run(msibuild ${installer} -q
      "UPDATE `File` SET `Version`='${VERSION}.0', `Language`='1033' WHERE `File`='${file}'")
endforeach()
file(SHA256 ${OUTPUT}/${name}.zip files)
file(SHA256 ${SOURCE}/package/installer.wxs rows)
file(SHA256 ${CMAKE_CURRENT_LIST_FILE} edits)
string(UUID content NAMESPACE ${product} NAME ${files}${rows}${edits} TYPE SHA1 UPPER)
run(msibuild ${installer} -s "WiFi Adapter Provider ${VERSION}" "The WiFi Adapter Provider authors"
    "x64\;1033" {${content}})
sign(${installer})
message(STATUS "Package: ${name}.msi")
include(${CMAKE_CURRENT_LIST_DIR}/make_bom.cmake)
