#pragma once

#include <cstdint>
#include <filesystem>
#include <optional>
#include <stdexcept>
#include <string>

namespace simulator {

/// Says which file cannot be read, and the reason.
class FileError : public std::runtime_error {
 public:
  using std::runtime_error::runtime_error;
};

/// A UTF-8 path in the form of the system's own calls.
std::filesystem::path FilePath(const std::string& utf8);

/// The whole content of a file or pipe; its path is UTF-8. Throws FileError if it is missing, must
/// not be read or is a folder.
std::string ReadTextFile(const std::string& name);

/// When a file was written last, in milliseconds since 1970, UTC; nullopt if that is not known.
std::optional<std::int64_t> WrittenAt(const std::string& path);

}  // namespace simulator
