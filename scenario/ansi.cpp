#include "scenario/ansi.h"

#include <algorithm>
#include <array>
#include <cstddef>

namespace simulator {
namespace {

/// The characters of bytes 0x80 to 0x9F; zero where the page has none.
constexpr std::array<char32_t, 32> kHighControls = {
    0x20AC, 0,      0x201A, 0x0192, 0x201E, 0x2026, 0x2020, 0x2021, 0x02C6, 0x2030, 0x0160,
    0x2039, 0x0152, 0,      0x017D, 0,      0,      0x2018, 0x2019, 0x201C, 0x201D, 0x2022,
    0x2013, 0x2014, 0x02DC, 0x2122, 0x0161, 0x203A, 0x0153, 0,      0x017E, 0x0178};

/// Takes one character off the front; a malformed one gives a value that no page has.
char32_t TakeCharacter(std::string_view& text) {
  const auto lead = static_cast<unsigned char>(text.front());
  const std::size_t size = lead < 0x80 ? 1 : lead < 0xE0 ? 2 : lead < 0xF0 ? 3 : 4;
  char32_t character = size == 1 ? lead : lead & (0x7Fu >> size);
  for (std::size_t i = 1; i < size; ++i) {
    const unsigned char next = i < text.size() ? static_cast<unsigned char>(text[i]) : 0;
    if ((next & 0xC0u) != 0x80u) {
      character = 0x110000;
      break;
    }
    character = character << 6 | (next & 0x3Fu);
  }
  text.remove_prefix(std::min(size, text.size()));
  return character;
}

}  // namespace

std::optional<std::string> AnsiFromUtf8(std::string_view utf8) {
  std::string ansi;
  while (!utf8.empty()) {
    const char32_t character = TakeCharacter(utf8);
    if (character < 0x80 || (character >= 0xA0 && character <= 0xFF)) {
      ansi.push_back(static_cast<char>(character));
      continue;
    }
    const auto found = std::find(kHighControls.begin(), kHighControls.end(), character);
    if (found == kHighControls.end()) return std::nullopt;
    ansi.push_back(static_cast<char>(0x80 + (found - kHighControls.begin())));
  }
  return ansi;
}

}  // namespace simulator
