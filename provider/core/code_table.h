#pragma once
// Texts for the codes and bit sets of the libraries, from tables.
//
//     TextOfCode(codes::kBands, 3, kUnknown)        // "802.11g"
//     TextOfFirstBit(codes::kCiphers, 6, kUnKnown)  // "TKIP": the first row that matches
//     TextOfAllBits(codes::kRates, 6)               // "2, 5.5, "

#include <cstdint>
#include <span>

#include "adapterapi/codes.h"
#include "platform/short_text.h"

namespace wifi {

using adapterapi::CodeText;

// The texts for a code or bit that is not in the table. Each class has its own.
inline constexpr std::string_view kUnknown = "Unknown";
inline constexpr std::string_view kBracketedUnknown = "<Unknown>";
inline constexpr std::string_view kUnKnown = "UnKnown";  // with the capital in the middle

/// The text of the row with this code; `unknown` if there is no such row.
constexpr std::string_view TextOfCode(std::span<const CodeText> rows, std::uint32_t code,
                                      std::string_view unknown) {
  for (const CodeText& row : rows) {
    if (row.code == code) return row.text;
  }
  return unknown;
}

/// The text of the first row whose bit is in `bits`; `unknown` if there is no such row.
constexpr std::string_view TextOfFirstBit(std::span<const CodeText> rows, std::uint32_t bits,
                                          std::string_view unknown) {
  for (const CodeText& row : rows) {
    if ((row.code & bits) != 0) return row.text;
  }
  return unknown;
}

/// The concatenated texts of all rows whose bit is in `bits`, in table order. 160 characters are
/// enough for all rows of the longest table.
inline platform::ShortText<160> TextOfAllBits(std::span<const CodeText> rows, std::uint32_t bits) {
  platform::ShortText<160> text;
  for (const CodeText& row : rows) {
    if ((row.code & bits) != 0) text.Add(row.text);
  }
  return text;
}

}  // namespace wifi
