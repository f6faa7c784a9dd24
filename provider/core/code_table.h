#pragma once
// Codes and bit sets of the adapter control library as texts: rows of data and three look-ups.

#include <cstdint>
#include <span>
#include <string>

namespace wifi {

struct CodeText {
  std::uint32_t code;
  const char* text;
};

/// The text of the row with this code, `unknown` without one.
constexpr const char* TextOfCode(std::span<const CodeText> rows, std::uint32_t code,
                                 const char* unknown) {
  for (const CodeText& row : rows) {
    if (row.code == code) return row.text;
  }
  return unknown;
}

/// The text of the first row, in table order, that shares a bit with `bits`; `unknown` without one.
constexpr const char* TextOfFirstBit(std::span<const CodeText> rows, std::uint32_t bits,
                                     const char* unknown) {
  for (const CodeText& row : rows) {
    if ((row.code & bits) != 0) return row.text;
  }
  return unknown;
}

/// The texts of all rows that share a bit with `bits`, in table order, one after the other.
inline std::string TextOfAllBits(std::span<const CodeText> rows, std::uint32_t bits) {
  std::string text;
  for (const CodeText& row : rows) {
    if ((row.code & bits) != 0) text += row.text;
  }
  return text;
}

}  // namespace wifi
