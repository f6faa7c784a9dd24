#pragma once
// The values that clients see turned back into members of a scenario. Only the sources of this
// folder include it.

#include <optional>
#include <string>

#include "scenario/fields.h"
#include "scenario/json.h"

namespace simulator {

/// The row of a table whose name is a property's but for letter case and underscores; null if there
/// is none.
const Field* FieldNamed(const Table& table, std::string_view property);

/// A whole number, or one that a text is: decimal, or hexadecimal without a prefix for base 16.
std::optional<std::int64_t> NumberIn(const nlohmann::json& value, int base = 10);

/// A text of code page 1252 that fits `size` bytes: as it is where a zero byte has room behind it,
/// else as its bytes. What does not fit, or the page lacks, is cut or becomes "?", and `problem`
/// says so.
nlohmann::ordered_json TextMember(const std::string& utf8, std::size_t size, std::string& problem);

/// What a scenario gives for this field so that clients see `value`; none if nothing does, and for
/// what only stands for the value, `problem` says why.
std::optional<nlohmann::ordered_json> MemberOf(const nlohmann::json& value, const Field& field,
                                               std::string& problem, int base = 10);

}  // namespace simulator
