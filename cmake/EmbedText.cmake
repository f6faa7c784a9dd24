# embed_text(TARGET FILE SYMBOL): compiles FILE's bytes into TARGET as a text, which
# EMBEDDED_TEXT(SYMBOL) of platform/embedded_text.h declares and SYMBOL() in namespace embedded returns.
# The source is written when the build is configured, which a change of FILE causes: written by a rule of
# the build, it would hold up every target that links TARGET.

function(embed_text target file symbol)
  get_filename_component(input ${file} ABSOLUTE)
  set_property(DIRECTORY APPEND PROPERTY CMAKE_CONFIGURE_DEPENDS ${input})
  file(READ ${input} hex HEX)
  string(LENGTH "${hex}" digits)
  math(EXPR size "${digits} / 2")
  string(REGEX REPLACE "(..)" "0x\\1," bytes "${hex}")
  string(REPEAT "." 80 line)
  string(REGEX REPLACE "(${line})" "\\1\n" bytes "${bytes}")
  set(output ${CMAKE_CURRENT_BINARY_DIR}/embedded_${symbol}.cpp)
  file(CONFIGURE OUTPUT ${output} @ONLY CONTENT "#include <string_view>
namespace embedded {
std::string_view @symbol@();
std::string_view @symbol@() {
  static constexpr unsigned char kBytes[] = {
@bytes@
0};
  return {reinterpret_cast<const char*>(kBytes), @size@};
}
}  // namespace embedded
")
  set_source_files_properties(${output} PROPERTIES SKIP_UNITY_BUILD_INCLUSION ON
                              SKIP_PRECOMPILE_HEADERS ON)
  target_sources(${target} PRIVATE ${output})
endfunction()
