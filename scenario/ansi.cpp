#include "scenario/ansi.h"

#include <algorithm>
#include <cstddef>
#include <iterator>

#include "platform/tables/code_page_1252.h"

namespace simulator {
namespace {

/// Removes and returns the first character. A malformed one gives a value that no code page has.
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
    const auto* found = std::ranges::find(platform::kCodePage1252Controls, character);
    const bool isControl = character < 0xA0;
    if (isControl || found == std::end(platform::kCodePage1252Controls)) return std::nullopt;
    ansi.push_back(static_cast<char>(0x80 + (found - platform::kCodePage1252Controls)));
  }
  return ansi;
}

}  // namespace simulator
