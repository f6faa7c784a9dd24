#include "scenario/text_file.h"

#include <cerrno>
#include <filesystem>
#include <fstream>
#include <sstream>
#include <system_error>

namespace simulator {

std::filesystem::path FilePath(const std::string& utf8) {
  return std::u8string(utf8.begin(), utf8.end());
}

std::string ReadTextFile(const std::string& name) {
  const std::filesystem::path path = FilePath(name);
  std::error_code ignored;
  if (std::filesystem::is_directory(path, ignored)) throw FileError(name + ": it is a folder");
  errno = 0;
  std::ifstream file(path, std::ios::binary);
  const int problem = errno;
  if (!file.is_open()) {
    throw FileError(name + ": it cannot be opened: " +
                    (problem == 0 ? "unknown reason" : std::generic_category().message(problem)));
  }
  std::ostringstream text;
  if (file.peek() != std::ifstream::traits_type::eof()) text << file.rdbuf();
  if (file.bad()) throw FileError(name + ": it cannot be read");
  return text.str();
}

}  // namespace simulator
