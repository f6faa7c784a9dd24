#include "host/history/recording_writer.h"

#include <algorithm>
#include <string>
#include <system_error>
#include <utility>

#include "scenario/recording.h"
#include "scenario/time_text.h"

namespace host {
namespace {

/// A reader can begin at every whole dump. At a sample every five seconds there is one in half an
/// hour.
constexpr int kMostPatches = 360;

/// How much of a file belongs to whole lines.
std::uintmax_t WholeLines(std::ifstream& file, std::uintmax_t size) {
  constexpr std::uintmax_t kPiece = 1 << 16;
  std::string piece;
  for (std::uintmax_t end = size; end > 0;) {
    const std::uintmax_t begin = end - std::min(end, kPiece);
    piece.resize(static_cast<std::size_t>(end - begin));
    file.seekg(static_cast<std::streamoff>(begin));
    file.read(piece.data(), static_cast<std::streamsize>(piece.size()));
    const std::size_t last = piece.rfind('\n');
    if (last != std::string::npos) return begin + last + 1;
    end = begin;
  }
  return 0;
}

std::string LineOf(std::int64_t time, const char* member, Json value) {
  const Json sample = {{simulator::kSampleTime, simulator::MomentText(time)},
                       {member, std::move(value)}};
  return sample.dump(-1, ' ', false, Json::error_handler_t::replace) + '\n';
}

}  // namespace

RecordingWriter::RecordingWriter(std::filesystem::path path, std::optional<std::uintmax_t> most)
    : path_(std::move(path)), most_(most) {
  Open();
}

void RecordingWriter::Fail(const std::string& problem) const {
  const std::u8string name = path_.u8string();
  throw RecordingError(std::string(name.begin(), name.end()) + ": " + problem);
}

void RecordingWriter::Open() {
  std::error_code problem;
  const auto status = std::filesystem::status(path_, problem);
  size_ = 0;
  if (std::filesystem::exists(status)) {
    if (!std::filesystem::is_regular_file(status)) Fail("a recording is an ordinary file");
    std::ifstream before(path_, std::ios::binary);
    const std::uintmax_t size = std::filesystem::file_size(path_, problem);
    std::string begin(std::min<std::size_t>(size, simulator::kSampleBegin.size()), '\0');
    before.read(begin.data(), static_cast<std::streamsize>(begin.size()));
    if (problem || !before) Fail("it cannot be read");
    if (!simulator::kSampleBegin.starts_with(begin)) {
      Fail("it is no recording, and is left as it is");
    }
    size_ = WholeLines(before, size);
    before.close();
    if (size_ < size) std::filesystem::resize_file(path_, size_, problem);
    if (problem) Fail("it cannot be written: " + problem.message());
  }
  file_.open(path_, std::ios::binary | std::ios::app);
  if (!file_) Fail("it cannot be written");
  patches_ = kMostPatches;  // the next sample is whole
}

void RecordingWriter::Rename() {
  file_.close();
  std::error_code problem;
  std::filesystem::path other;
  for (int number = 1; other.empty() || std::filesystem::exists(other, problem); ++number) {
    other = path_;
    other += "." + std::to_string(number);
  }
  std::filesystem::rename(path_, other, problem);
  if (problem) Fail("it cannot be renamed: " + problem.message());
  Open();
}

void RecordingWriter::Write(std::int64_t time, Json dump) {
  const auto whole = [&] { return LineOf(time, simulator::kSampleWhole, dump); };
  bool isWhole = patches_ >= kMostPatches;
  std::string line =
      isWhole ? whole() : LineOf(time, simulator::kSamplePatch, Json::diff(last_, dump));
  if (most_ && size_ > 0 && size_ + line.size() > *most_) {
    Rename();
    isWhole = true;
    line = whole();
  }
  if (!(file_ << line << std::flush)) {
    file_.close();
    std::error_code unknown;
    std::filesystem::resize_file(path_, size_, unknown);
    Fail("it cannot be written further");
  }
  size_ += line.size();
  patches_ = isWhole ? 0 : patches_ + 1;
  last_ = std::move(dump);
}

}  // namespace host
