# Writes OUTPUT, a source file that holds the bytes of INPUT under the name SYMBOL.
file(READ ${INPUT} hex HEX)
string(LENGTH "${hex}" digits)
math(EXPR size "${digits} / 2")
string(REGEX REPLACE "(..)" "0x\\1," bytes "${hex}")
string(REGEX REPLACE "(................................................................................)" "\\1\n" bytes "${bytes}")
file(WRITE ${OUTPUT} "#include <cstddef>
namespace embedded {
extern const std::size_t ${SYMBOL}_size;
extern const unsigned char ${SYMBOL}_bytes[];
const std::size_t ${SYMBOL}_size = ${size};
const unsigned char ${SYMBOL}_bytes[] = {
${bytes}
0};
}  // namespace embedded
")
