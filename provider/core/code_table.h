#pragma once
// Codes and bit sets of the libraries as texts: three look-ups in rows of data.

#include <cstdint>
#include <span>

#include "adapterapi/codes.h"
#include "platform/short_text.h"

namespace wifi {

using adapterapi::CodeText;

// The words for a code or a bit that a table lacks; each class has its own.
inline constexpr char kUnknown[] = "Unknown";
inline constexpr char kBracketedUnknown[] = "<Unknown>";
inline constexpr char kUnKnown[] = "UnKnown";  // with the capital in the middle

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

/// The texts of all rows that share a bit with `bits`, in table order, one after the other. The
/// room is that of the longest table.
inline platform::ShortText<160> TextOfAllBits(std::span<const CodeText> rows, std::uint32_t bits) {
  platform::ShortText<160> text;
  for (const CodeText& row : rows) {
    if ((row.code & bits) != 0) text.Add(row.text);
  }
  return text;
}

}  // namespace wifi
