#include "scenario/text_file.h"

#include <cerrno>
#include <chrono>
#include <filesystem>
#include <fstream>
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
  constexpr std::size_t kPiece = 1 << 16;
  // A large file is in memory once; of a pipe the size is not known.
  std::string text;
  const auto size = std::filesystem::file_size(path, ignored);
  if (!ignored) text.reserve(static_cast<std::size_t>(size) + kPiece);
  while (file) {
    const std::size_t end = text.size();
    text.resize(end + kPiece);
    file.read(text.data() + end, static_cast<std::streamsize>(kPiece));
    text.resize(end + static_cast<std::size_t>(file.gcount()));
  }
  if (file.bad()) throw FileError(name + ": it cannot be read");
  return text;
}

std::optional<std::int64_t> WrittenAt(const std::string& path) {
  using std::chrono::system_clock;
  std::error_code unknown;
  const auto written = std::filesystem::last_write_time(FilePath(path), unknown);
  if (unknown) return std::nullopt;
  const auto age = std::filesystem::file_time_type::clock::now() - written;
  return std::chrono::floor<std::chrono::milliseconds>(
             (system_clock::now() - age).time_since_epoch())
      .count();
}

}  // namespace simulator
