#pragma once

#include <filesystem>
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

}  // namespace simulator
