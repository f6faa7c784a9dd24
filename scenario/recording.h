#pragma once
// Recordings: what a machine showed while time passed, as JSON lines. Each line is a sample: an
// object with the time and either the whole dump ("whole") or the JSON Patch of RFC 6902 from the
// sample before ("patch").

#include <cstdint>
#include <optional>
#include <string_view>

#include "scenario/json.h"

namespace simulator {

inline constexpr const char* kSampleTime = "time";
inline constexpr const char* kSampleWhole = "whole";
inline constexpr const char* kSamplePatch = "patch";
/// The beginning of each line.
inline constexpr std::string_view kSampleBegin = "{\"time\":\"";

/// Reads a recording from its text, which must outlive the reader. Skips a line that is no sample,
/// such as one that was cut off, and then every patch up to the next whole dump.
class RecordingReader {
 public:
  explicit RecordingReader(std::string_view text) : rest_(text) {}

  /// Reads the next sample; false at the end.
  bool Next();
  /// The time of the sample, in milliseconds since 1970, UTC.
  std::int64_t time() const { return time_; }
  /// The dump that the sample stands for.
  const nlohmann::ordered_json& dump() const { return *dump_; }
  /// Whether the dump is another than that of the sample before.
  bool IsChanged() const { return isChanged_; }
  /// The number of lines that could not be read.
  std::size_t skipped() const { return skipped_; }

 private:
  bool Take(std::string_view line);

  std::string_view rest_;
  std::int64_t time_ = 0;
  std::optional<nlohmann::ordered_json> dump_;  ///< nullopt until a whole dump comes
  bool isChanged_ = false;
  std::size_t skipped_ = 0;
};

}  // namespace simulator
