#pragma once

#include <cstdint>
#include <filesystem>
#include <fstream>
#include <optional>
#include <stdexcept>

#include "host/service/value.h"

namespace host {

/// Says why a recording cannot be written.
class RecordingError : public std::runtime_error {
 public:
  using std::runtime_error::runtime_error;
};

/// Writes the samples of a recording to a file, each line whole or not at all.
class RecordingWriter {
 public:
  /// Goes on with the recording in the file, or begins one. The rest of a line that was cut off is
  /// removed. Before the file would have more than `most` bytes it gets another name, with the
  /// first free number, and a new one is begun. Throws RecordingError, also for a file that is no
  /// recording.
  explicit RecordingWriter(std::filesystem::path path, std::optional<std::uintmax_t> most = {});

  /// Adds what the machine shows at `time`, in milliseconds since 1970, UTC. Throws RecordingError;
  /// the samples before stay.
  void Write(std::int64_t time, Json dump);

 private:
  void Open();
  void Rename();
  [[noreturn]] void Fail(const std::string& problem) const;

  std::filesystem::path path_;
  std::optional<std::uintmax_t> most_;
  std::ofstream file_;
  std::uintmax_t size_ = 0;
  Json last_;
  int patches_ = 0;  ///< since the last whole dump
};

}  // namespace host
