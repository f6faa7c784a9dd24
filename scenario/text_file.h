#pragma once

#include <filesystem>
#include <stdexcept>
#include <string>

namespace simulator {

/// Says which file cannot be read, and why.
class FileError : public std::runtime_error {
 public:
  using std::runtime_error::runtime_error;
};

/// A path of UTF-8 as the system's own calls take it.
std::filesystem::path FilePath(const std::string& utf8);

/// The whole content of a file, a pipe too; its path is UTF-8. Throws FileError for one that is
/// missing, forbidden or a folder.
std::string ReadTextFile(const std::string& name);

}  // namespace simulator
