#pragma once
// The names that a scenario may use for the libraries' codes and bits, which are their texts.

#include <algorithm>
#include <array>

#include "adapterapi/codes.h"
#include "scenario/fields.h"

namespace simulator {

/// The rows by code, their texts without the blank or separator with which some of them end.
template <const auto& Rows>
inline constexpr auto kNamesOf = [] {
  std::array<Name, std::size(Rows)> names;
  std::ranges::transform(Rows, names.begin(), [](const adapterapi::CodeText& row) {
    const std::string_view text = row.text;
    return Name{text.substr(0, text.find_last_not_of(", ") + 1), row.code};
  });
  std::ranges::sort(names, {}, &Name::code);
  return names;
}();

}  // namespace simulator
