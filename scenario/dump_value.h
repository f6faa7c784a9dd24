#pragma once
// Converts the values that clients see back into members of a scenario. Only the sources of this
// folder include it.

#include <optional>
#include <string>

#include "scenario/fields.h"
#include "scenario/json.h"

namespace simulator {

/// The row of a table whose name equals the property's, ignoring letter case and underscores; null
/// if there is no such row.
const Field* FieldNamed(const Table& table, std::string_view property);

/// A whole number, or a text with one: decimal, or hexadecimal without a prefix for base 16.
std::optional<std::int64_t> NumberIn(const nlohmann::json& value, int base = 10);

/// A text of code page 1252 that fits `size` bytes: a text if there is room for its terminating
/// zero, else its bytes. A text that is too long is cut, characters that the page lacks become "?",
/// and `problem` says so.
nlohmann::ordered_json TextMember(const std::string& utf8, std::size_t size, std::string& problem);

/// The scenario's value of this field with which clients see `value`; nullopt if there is no such
/// value. `problem` says why, or why the value is only a substitute.
std::optional<nlohmann::ordered_json> MemberOf(const nlohmann::json& value, const Field& field,
                                               std::string& problem, int base = 10);

}  // namespace simulator
