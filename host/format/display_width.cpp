#include <algorithm>
#include <cstddef>
#include <iterator>

#include "host/format/format.h"
#include "host/format/utf8.h"

namespace host {
namespace {

struct WidthRange {
  char32_t first;
  char32_t last;
  int width;
};

// In ascending order; characters between the ranges take one column.
constexpr WidthRange kWidths[] = {
    {0x0300, 0x036F, 0},    // combining marks
    {0x1100, 0x115F, 2},    // Hangul initial consonants
    {0x1AB0, 0x1AFF, 0},    // combining marks, extended
    {0x200B, 0x200F, 0},    // zero-width blanks and direction marks
    {0x20D0, 0x20FF, 0},    // combining marks for symbols
    {0x2E80, 0x303E, 2},    // CJK radicals and punctuation
    {0x3041, 0xA4CF, 2},    // Kana, CJK, Yi
    {0xAC00, 0xD7A3, 2},    // Hangul syllables
    {0xF900, 0xFAFF, 2},    // CJK compatibility
    {0xFE00, 0xFE0F, 0},    // variation selectors
    {0xFE30, 0xFE6F, 2},    // CJK compatibility forms
    {0xFF00, 0xFF60, 2},    // full-width forms
    {0xFFE0, 0xFFE6, 2},    // full-width signs
    {0x1F300, 0x1F64F, 2},  // pictographs
    {0x1F900, 0x1F9FF, 2},  // more pictographs
    {0x20000, 0x3FFFD, 2},  // CJK extensions
};

int WidthOf(char32_t character) {
  const WidthRange* range = std::ranges::lower_bound(kWidths, character, {}, &WidthRange::last);
  return range != std::end(kWidths) && character >= range->first ? range->width : 1;
}

}  // namespace

int DisplayWidth(std::string_view utf8) {
  int width = 0;
  for (std::size_t next = 0; next < utf8.size();) width += WidthOf(NextCharacter(utf8, &next));
  return width;
}

}  // namespace host
