#pragma once

#include <cstdint>
#include <string>

namespace simulator {

/// The number in upper-case hexadecimal, at least `digits` digits.
inline std::string UpperHex(std::uint32_t number, std::size_t digits) {
  constexpr char kDigits[] = "0123456789ABCDEF";
  std::string text;
  for (; number != 0 || text.size() < digits; number >>= 4) {
    text.insert(text.begin(), kDigits[number & 0xFu]);
  }
  return text;
}

}  // namespace simulator
