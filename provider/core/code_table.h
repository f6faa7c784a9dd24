#pragma once
// Codes and bit sets of the libraries as texts: three look-ups in rows of data.

#include <cstdint>
#include <span>

#include "adapterapi/codes.h"
#include "platform/short_text.h"

namespace wifi {

using adapterapi::CodeText;

// The words for a code or a bit that a table lacks; each class has its own.
inline constexpr std::string_view kUnknown = "Unknown";
inline constexpr std::string_view kBracketedUnknown = "<Unknown>";
inline constexpr std::string_view kUnKnown = "UnKnown";  // with the capital in the middle

/// The text of the row with this code, `unknown` without one.
constexpr std::string_view TextOfCode(std::span<const CodeText> rows, std::uint32_t code,
                                      std::string_view unknown) {
  for (const CodeText& row : rows) {
    if (row.code == code) return row.text;
  }
  return unknown;
}

/// The text of the first row, in table order, that shares a bit with `bits`; `unknown` without one.
constexpr std::string_view TextOfFirstBit(std::span<const CodeText> rows, std::uint32_t bits,
                                          std::string_view unknown) {
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
