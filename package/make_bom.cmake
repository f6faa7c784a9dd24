# Included by make_package.cmake: writes next to the package what it consists of (NAME.cdx.json, a bill of
# materials in CycloneDX 1.5), how it was made (NAME.provenance.json, an in-toto statement without a
# signature), and the hashes of everything (SHA256SUMS).

# What is linked into the binaries: name, Debian package, licence, and the binaries (* is all of them). The
# names are those of the third-party notices.
set(programs WiFiAdapterProvider.dll wmihost.exe simulator/QuarnApi.dll simulator/TolvaApi.dll)
set(notices "\"license\": {\"name\": \"see THIRD-PARTY-NOTICES.txt\"}")
set(compiler g++-mingw-w64-x86-64-posix)
set(runtime mingw-w64-x86-64-dev)
set(libraries
  "CLI11|libcli11-dev|\"license\": {\"id\": \"BSD-3-Clause\"}|wmihost.exe"
  "JSON for Modern C++, nlohmann-json|nlohmann-json3-dev|\"license\": {\"id\": \"MIT\"}|wmihost.exe simulator/QuarnApi.dll simulator/TolvaApi.dll"
  "winpthreads|${runtime}|${notices}|*"
  "mingw-w64 runtime|${runtime}|${notices}|*"
  "GCC runtime libraries libgcc and libstdc++|${compiler}|\"expression\": \"GPL-3.0-or-later WITH GCC-exception-3.1\"|*")
set(tools ${compiler} binutils-mingw-w64-x86-64 mingw-w64-tools cmake wixl msitools faketime)

# Sets `identity` to the package's version and address, as members of an object, and `purl` to the address.
macro(identify package)
  execute_process(COMMAND dpkg-query -W -f "\${Version}" ${package} OUTPUT_VARIABLE version COMMAND_ERROR_IS_FATAL ANY)
  string(REPLACE "+" "%2B" purl "pkg:deb/debian/${package}@${version}")
  set(identity "\"version\": \"${version}\", \"purl\": \"${purl}\"")
endmacro()
function(join list variable)
  list(JOIN ${list} ",\n    " joined)
  set(${variable} "[\n    ${joined}\n  ]" PARENT_SCOPE)
endfunction()
# "ref": what it depends on
macro(depend ref)
  set(refs ${ARGN})
  list(JOIN refs "\", \"" refs)
  list(APPEND dependencies "{\"ref\": \"${ref}\", \"dependsOn\": [\"${refs}\"]}")
endmacro()

set(components "")
set(dependencies "")
foreach(row IN LISTS libraries)
  string(REPLACE "|" ";" row "${row}")
  list(POP_FRONT row library package licence)
  identify(${package})
  string(REPLACE " " ";" users "${row}")
  if(users STREQUAL "*")
    set(users ${programs})
  endif()
  list(APPEND components
       "{\"type\": \"library\", \"bom-ref\": \"${library}\", \"name\": \"${library}\", ${identity}, \"licenses\": [{${licence}}]}")
  foreach(user IN LISTS users)
    list(APPEND in_${user} "${library}")
  endforeach()
endforeach()

file(GLOB_RECURSE files RELATIVE ${root} ${root}/*)
list(SORT files)
set(imports "")
foreach(file IN LISTS files)
  file(SHA256 ${root}/${file} hash)
  list(APPEND components
       "{\"type\": \"file\", \"bom-ref\": \"${file}\", \"name\": \"${file}\", \"hashes\": [{\"alg\": \"SHA-256\", \"content\": \"${hash}\"}]}")
  if(file IN_LIST programs)
    execute_process(COMMAND ${OBJDUMP} -p ${root}/${file} OUTPUT_VARIABLE tables COMMAND_ERROR_IS_FATAL ANY)
    string(REGEX MATCHALL "DLL Name: [^\n]+" imported "${tables}")
    list(TRANSFORM imported REPLACE "DLL Name: " "")
    list(APPEND imports ${imported})
    depend(${file} ${imported} ${in_${file}})
  endif()
endforeach()
depend(package ${files})
list(REMOVE_DUPLICATES imports)
list(SORT imports CASE INSENSITIVE)
foreach(library IN LISTS imports)
  set(source "Windows")
  if(library MATCHES "^(QuarnApi|TolvaApi)")
    set(source "the adapter's driver package")
  endif()
  list(APPEND components
       "{\"type\": \"library\", \"bom-ref\": \"${library}\", \"name\": \"${library}\", \"description\": \"Imported, part of ${source}\"}")
endforeach()

set(tool_components "")
set(materials "")
foreach(tool IN LISTS tools)
  identify(${tool})
  list(APPEND tool_components "{\"type\": \"application\", \"name\": \"${tool}\", ${identity}}")
  list(APPEND materials "{\"uri\": \"${purl}\"}")
endforeach()
join(tool_components tool_components)
join(components components)
join(dependencies dependencies)
string(TOLOWER ${content} serial)
set(bom ${OUTPUT}/${name}.cdx.json)
file(WRITE ${bom} "{
  \"bomFormat\": \"CycloneDX\",
  \"specVersion\": \"1.5\",
  \"serialNumber\": \"urn:uuid:${serial}\",
  \"version\": 1,
  \"metadata\": {
    \"component\": {\"type\": \"application\", \"bom-ref\": \"package\", \"name\": \"WiFi Adapter Provider\", \"version\": \"${VERSION}\"},
    \"tools\": {\"components\": ${tool_components}}
  },
  \"components\": ${components},
  \"dependencies\": ${dependencies}
}
")

set(commit "")
if(EXISTS ${SOURCE}/.git)
  execute_process(COMMAND git -C ${SOURCE} rev-parse HEAD OUTPUT_VARIABLE commit ERROR_QUIET OUTPUT_STRIP_TRAILING_WHITESPACE)
  execute_process(COMMAND git -C ${SOURCE} status --porcelain OUTPUT_VARIABLE changes ERROR_QUIET)
endif()
if(commit AND NOT changes)
  list(PREPEND materials "{\"name\": \"sources\", \"digest\": {\"gitCommit\": \"${commit}\"}}")
endif()
set(signed false)
if(SIGN)
  set(signed true)
endif()
set(subjects "")
set(sums "")
foreach(file ${name}.msi ${name}.zip ${name}-symbols.zip ${name}.cdx.json)
  file(SHA256 ${OUTPUT}/${file} hash)
  list(APPEND subjects "{\"name\": \"${file}\", \"digest\": {\"sha256\": \"${hash}\"}}")
  string(APPEND sums "${hash}  ${file}\n")
endforeach()
join(subjects subjects)
join(materials materials)
set(provenance ${OUTPUT}/${name}.provenance.json)
file(WRITE ${provenance} "{
  \"_type\": \"https://in-toto.io/Statement/v1\",
  \"subject\": ${subjects},
  \"predicateType\": \"https://slsa.dev/provenance/v1\",
  \"predicate\": {
    \"buildDefinition\": {
      \"buildType\": \"urn:wifi-adapter-provider:cmake-target-package\",
      \"externalParameters\": {\"version\": \"${VERSION}\", \"binariesAreSigned\": ${signed}},
      \"resolvedDependencies\": ${materials}
    },
    \"runDetails\": {\"builder\": {\"id\": \"urn:wifi-adapter-provider:unattested-build\"}}
  }
}
")
file(SHA256 ${provenance} hash)
file(WRITE ${OUTPUT}/SHA256SUMS "${sums}${hash}  ${name}.provenance.json\n")
