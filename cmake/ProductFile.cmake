# product_file(TARGET DESCRIPTION [PRODUCT_NAME_SUFFIX]): makes TARGET a file that is delivered. On
# Windows it gets a version resource, and its debug symbols go into a separate file next to it,
# TARGET.dll.debug or TARGET.exe.debug. The version is that of project().

function(product_file target description)
  if(NOT WIN32)
    return()
  endif()
  enable_language(RC)
  set(product "WiFi Adapter Provider${ARGV2}")
  get_target_property(type ${target} TYPE)
  if(type STREQUAL EXECUTABLE)
    set(file_type VFT_APP)
    set(suffix ${CMAKE_EXECUTABLE_SUFFIX})
  else()
    set(file_type VFT_DLL)
    set(suffix ${CMAKE_SHARED_LIBRARY_SUFFIX})
  endif()
  set(resource ${CMAKE_CURRENT_BINARY_DIR}/${target}.rc)
  configure_file(${PROJECT_SOURCE_DIR}/cmake/version.rc.in ${resource} @ONLY)
  target_sources(${target} PRIVATE ${resource})
  if(MINGW)
    set(file $<TARGET_FILE:${target}>)
    set(timeless ${CMAKE_COMMAND} -E env SOURCE_DATE_EPOCH=0)
    add_custom_command(TARGET ${target} POST_BUILD
      COMMAND ${timeless} ${CMAKE_OBJCOPY} --only-keep-debug ${file} ${file}.debug
      COMMAND ${timeless} ${CMAKE_STRIP} ${file}
      COMMAND ${timeless} ${CMAKE_OBJCOPY} --add-gnu-debuglink=${file}.debug ${file}
      VERBATIM)
  endif()
endfunction()
