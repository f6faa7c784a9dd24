#include "scenario/recording.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <filesystem>
#include <fstream>
#include <random>
#include <sstream>

#include "host/history/recording_writer.h"

namespace host {
namespace {

Json SampleOf(int rssi) {
  return {{"WiFi_AdapterSignalParameters", {{{"SettingID", "7"}, {"RSSI", rssi}}}}};
}

std::string ContentOf(const std::filesystem::path& path) {
  std::ostringstream text;
  text << std::ifstream(path, std::ios::binary).rdbuf();
  return text.str();
}

class RecordingTest : public ::testing::Test {
 protected:
  void SetUp() override {
    std::filesystem::remove_all(folder_);
    std::filesystem::create_directory(folder_);
  }
  void TearDown() override { std::filesystem::remove_all(folder_); }

  void Put(const std::string& text) { std::ofstream(path_, std::ios::binary) << text; }
  /// Records a sample a second, from second `first` up to before `end`; the signal is its second.
  void Record(int first, int end, std::optional<std::uintmax_t> most = {}) {
    RecordingWriter writer(path_, most);
    for (int second = first; second < end; ++second) writer.Write(1000 * second, SampleOf(second));
  }
  /// The seconds of the samples, each of which must show its second as the signal.
  static std::vector<int> SecondsIn(const std::string& text, std::size_t* skipped = nullptr) {
    std::vector<int> seconds;
    simulator::RecordingReader reader(text);
    while (reader.Next()) {
      seconds.push_back(static_cast<int>(reader.time() / 1000));
      EXPECT_EQ(reader.dump(), SampleOf(seconds.back()));
    }
    if (skipped != nullptr) *skipped = reader.skipped();
    return seconds;
  }

  const std::filesystem::path folder_ =
      std::filesystem::path(::testing::TempDir()) /
      ("wmihost-recording-" + std::to_string(std::random_device()()));
  const std::filesystem::path path_ = folder_ / "day.jsonl";
};

TEST_F(RecordingTest, CutAnywhereItIsStillOneAndGoesOn) {
  Record(0, 4);
  const std::string whole = ContentOf(path_);
  for (std::size_t size = 0; size <= whole.size(); ++size) {
    SCOPED_TRACE(size);
    const std::string cut = whole.substr(0, size);
    const auto lines = static_cast<int>(std::ranges::count(cut, '\n'));
    std::vector<int> expected;
    for (int second = 0; second < lines; ++second) expected.push_back(second);
    EXPECT_EQ(SecondsIn(cut), expected);
    Put(cut);
    Record(8, 10);
    expected.insert(expected.end(), {8, 9});
    std::size_t skipped = 0;
    EXPECT_EQ(SecondsIn(ContentOf(path_), &skipped), expected);
    EXPECT_EQ(skipped, 0u) << "nothing is left of a line that was cut";
  }
}

TEST_F(RecordingTest, SkipsWhatItCannotFollow) {
  Record(0, 3);
  std::string text = ContentOf(path_);
  const std::size_t second = text.find('\n') + 1;
  text.replace(second, 1, "x");
  Put(text);
  Record(5, 7);
  std::size_t skipped = 0;
  EXPECT_EQ(SecondsIn(ContentOf(path_), &skipped), (std::vector<int>{0, 5, 6}));
  EXPECT_EQ(skipped, 2u) << "the broken line, and the patch that follows it";
  for (const char* line :
       {"1", "{}", R"({"time":"1970-01-01T00:00:00.000Z"})", R"({"time":1,"whole":{}})",
        R"({"time":"noon","whole":{}})", R"({"time":"1970-01-01T00:00:00.000Z","whole":[]})",
        R"({"time":"1970-01-01T00:00:00.000Z","patch":[]})"}) {
    EXPECT_TRUE(SecondsIn(std::string(line) + "\n").empty()) << line;
  }
}

TEST_F(RecordingTest, IsSmallAndWholeAgainAfterAWhile) {
  Record(0, 1000);
  const std::string text = ContentOf(path_);
  std::size_t whole = 0;
  for (std::size_t at = text.find("whole"); at != text.npos; at = text.find("whole", at + 1)) {
    ++whole;
  }
  EXPECT_EQ(whole, 3u);
  EXPECT_EQ(SecondsIn(text.substr(text.find("\n", text.rfind("whole") - 100) + 1)).back(), 999);
  const std::size_t size = text.size();
  RecordingWriter writer(path_);
  writer.Write(0, SampleOf(0));
  const std::uintmax_t before = std::filesystem::file_size(path_);
  writer.Write(1000, SampleOf(0));
  EXPECT_LT(std::filesystem::file_size(path_) - before, 60u) << "a sample without a change";
  EXPECT_GT(before, size);
}

TEST_F(RecordingTest, RenamesAFullFileAndLosesNothing) {
  constexpr std::uintmax_t kMost = 1000;
  Record(0, 40, kMost);
  std::string all;
  std::vector<std::filesystem::path> files;
  for (int number = 1;; ++number) {
    std::filesystem::path file = path_;
    file += "." + std::to_string(number);
    if (!std::filesystem::exists(file)) break;
    files.push_back(file);
  }
  files.push_back(path_);
  EXPECT_GT(files.size(), 3u);
  for (const std::filesystem::path& file : files) {
    EXPECT_LE(std::filesystem::file_size(file), kMost);
    EXPECT_FALSE(SecondsIn(ContentOf(file)).empty()) << "each file can be read alone";
    all += ContentOf(file);
  }
  EXPECT_EQ(SecondsIn(all).size(), 40u);
}

TEST_F(RecordingTest, LeavesOtherFilesAlone) {
  for (const std::string text : {"{\"adapters\": []}", "{\"time\": 1}\n", "x", "\n"}) {
    Put(text);
    EXPECT_THROW(RecordingWriter{path_}, RecordingError) << text;
    EXPECT_EQ(ContentOf(path_), text);
  }
  EXPECT_THROW(RecordingWriter{folder_}, RecordingError);
  EXPECT_THROW(RecordingWriter{folder_ / "none" / "day.jsonl"}, RecordingError);
}

}  // namespace
}  // namespace host
