#pragma once

#include <stdexcept>
#include <string>

namespace simulator {

/// Says which file cannot be read, and why.
class FileError : public std::runtime_error {
 public:
  using std::runtime_error::runtime_error;
};

/// The whole content of a file, a pipe too; `name` stands for it in errors. Throws FileError for
/// one that is missing, forbidden or a folder.
std::string ReadTextFile(const std::string& path, const std::string& name);

}  // namespace simulator
