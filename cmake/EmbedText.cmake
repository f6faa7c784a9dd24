# embed_text(TARGET FILE SYMBOL): compiles FILE's bytes into TARGET as a text, which
# EMBEDDED_TEXT(SYMBOL) of platform/embedded_text.h declares and SYMBOL() in namespace embedded returns.
# The source is rebuilt whenever FILE changes.

function(embed_text target file symbol)
  get_filename_component(input ${file} ABSOLUTE)
  set(output ${CMAKE_CURRENT_BINARY_DIR}/embedded_${symbol}.cpp)
  add_custom_command(
    OUTPUT ${output}
    COMMAND ${CMAKE_COMMAND} -DINPUT=${input} -DOUTPUT=${output} -DSYMBOL=${symbol}
            -P ${CMAKE_SOURCE_DIR}/cmake/EmbedTextStep.cmake
    DEPENDS ${input} ${CMAKE_SOURCE_DIR}/cmake/EmbedTextStep.cmake
    VERBATIM)
  set_source_files_properties(${output} PROPERTIES SKIP_UNITY_BUILD_INCLUSION ON
                              SKIP_PRECOMPILE_HEADERS ON)
  target_sources(${target} PRIVATE ${output})
endfunction()
