#pragma once

#include <cstddef>
#include <string_view>

namespace host {

/// The character that begins at `*next`; moves `*next` past it. A byte that begins no character is
/// returned as it is, and so is the first byte of a truncated sequence.
inline char32_t NextCharacter(std::string_view utf8, std::size_t* next) {
  const auto lead = static_cast<unsigned char>(utf8[(*next)++]);
  int following = lead >= 0xF0 ? 3 : lead >= 0xE0 ? 2 : lead >= 0xC0 ? 1 : 0;
  char32_t character = following == 0 ? lead : lead & (0x3F >> following);
  for (; following > 0 && *next < utf8.size(); --following) {
    const auto byte = static_cast<unsigned char>(utf8[*next]);
    if ((byte & 0xC0) != 0x80) break;
    character = (character << 6) | (byte & 0x3F);
    ++*next;
  }
  return following > 0 ? lead : character;
}

}  // namespace host
