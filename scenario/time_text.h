#pragma once

#include <cstdint>
#include <optional>
#include <string>
#include <string_view>

namespace simulator {

/// A length of time in milliseconds: "90" and "90s" are seconds; "1m30s", "2h", "1d" and "500ms"
/// are parts or sums of them, from the largest unit to the smallest. nullopt for another text, and
/// for more than ten years.
std::optional<std::int64_t> ParseDuration(std::string_view text);

/// Milliseconds since 1970 of a moment in UTC, "2026-11-24T09:00:00Z" or with three more digits,
/// "2026-11-24T09:00:00.250Z". nullopt for another text.
std::optional<std::int64_t> ParseMoment(std::string_view text);
/// The same moment as text, always with milliseconds.
std::string MomentText(std::int64_t milliseconds);

}  // namespace simulator
