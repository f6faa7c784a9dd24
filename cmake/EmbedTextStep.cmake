# Writes OUTPUT, a source file with the bytes of INPUT under the name SYMBOL.
file(READ ${INPUT} hex HEX)
string(LENGTH "${hex}" digits)
math(EXPR size "${digits} / 2")
string(REGEX REPLACE "(..)" "0x\\1," bytes "${hex}")
string(REGEX REPLACE "(................................................................................)" "\\1\n" bytes "${bytes}")
file(WRITE ${OUTPUT} "#include <string_view>
namespace embedded {
std::string_view ${SYMBOL}();
std::string_view ${SYMBOL}() {
  static constexpr unsigned char kBytes[] = {
${bytes}
0};
  return {reinterpret_cast<const char*>(kBytes), ${size}};
}
}  // namespace embedded
")
