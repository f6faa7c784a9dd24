#pragma once

#include <cstddef>
#include <string_view>
#include <type_traits>

namespace platform {

/// Lower-cases A to Z; every other character is returned unchanged. Works for any character type.
template <class Character>
constexpr Character AsciiLower(Character character) {
  return character >= 'A' && character <= 'Z' ? static_cast<Character>(character + ('a' - 'A'))
                                              : character;
}

/// Whether two texts are equal when the case of A to Z is ignored.
template <class Character>
constexpr bool SameIgnoringAsciiCase(
    std::basic_string_view<Character> left,
    std::type_identity_t<std::basic_string_view<Character>> right) {
  if (left.size() != right.size()) return false;
  for (std::size_t index = 0; index < left.size(); ++index) {
    if (AsciiLower(left[index]) != AsciiLower(right[index])) return false;
  }
  return true;
}
constexpr bool SameIgnoringAsciiCase(std::string_view left, std::string_view right) {
  return SameIgnoringAsciiCase<char>(left, right);
}

/// The value of a hexadecimal digit of either case; -1 for any other character.
template <class Character>
constexpr int HexDigit(Character character) {
  if (character >= '0' && character <= '9') return character - '0';
  const Character lower = AsciiLower(character);
  return lower >= 'a' && lower <= 'f' ? lower - 'a' + 10 : -1;
}

}  // namespace platform
