#include <gtest/gtest.h>

#include <cstdint>
#include <string>

#include "platform/text.h"

namespace {

using platform::OleString;
using platform::OleStringView;

// The conversions are the same on every platform if their results have the same hash (FNV-1a).
class Hash {
 public:
  void Add(unsigned value) {
    for (int shift = 0; shift < 32; shift += 8) {
      value_ = (value_ ^ (value >> shift & 0xFF)) * 0x100000001B3u;
    }
  }
  std::uint64_t value() const { return value_; }

 private:
  std::uint64_t value_ = 0xCBF29CE484222325u;
};

std::uint64_t HashOfCodeUnits(DWORD flags) {
  Hash hash;
  for (unsigned unit = 0; unit < 0x10000; ++unit) {
    const OLECHAR wide = static_cast<OLECHAR>(unit);
    char byte = 0;
    BOOL used = FALSE;
    EXPECT_EQ(1, WideCharToMultiByte(CP_ACP, flags, &wide, 1, &byte, 1, nullptr, &used)) << unit;
    hash.Add(static_cast<unsigned char>(byte));
    hash.Add(used != FALSE);
  }
  return hash.value();
}

TEST(CodePage, GivesTheSameCharacterForEveryByteOnEveryPlatform) {
  Hash hash;
  std::string all;
  for (int byte = 0; byte < 256; ++byte) all.push_back(static_cast<char>(byte));
  const OleString wide = platform::WideText(all);
  ASSERT_EQ(256u, wide.size());
  for (const OLECHAR unit : wide) hash.Add(unit);
  EXPECT_EQ(13773001743763820408u, hash.value());
  EXPECT_EQ(OLECHAR{0x20AC}, wide[0x80]);

  std::string back(256, 'x');
  EXPECT_EQ(256, WideCharToMultiByte(CP_ACP, WC_NO_BEST_FIT_CHARS, wide.data(), 256, back.data(),
                                     256, nullptr, nullptr));
  EXPECT_EQ(all, back);
}

TEST(CodePage, GivesTheSameByteForEveryCharacterOnEveryPlatform) {
  EXPECT_EQ(17649183076267783048u, HashOfCodeUnits(0));
  EXPECT_EQ(13753158614643583013u, HashOfCodeUnits(WC_NO_BEST_FIT_CHARS));
}

TEST(CodePage, NarrowsWithSimilarCharactersAndTheDefaultOne) {
  EXPECT_EQ("Ae?2\x80", platform::AnsiText(OLESTR("\u0100\u0119\u4E2D\u2082\u20AC")));
  EXPECT_EQ("??x", platform::AnsiText(OLESTR("\U0001F600x")));
  EXPECT_EQ("", platform::AnsiText(nullptr));
  char text[2];
  EXPECT_EQ(2, WideCharToMultiByte(CP_ACP, 0, OLESTR("a\u4E2D"), 2, text, 2, "_", nullptr));
  EXPECT_EQ("a_", std::string(text, 2));
}

TEST(CodePage, ConvertsUtf8) {
  struct Row {
    const char* utf8;
    OleStringView wide;
    bool valid;
  };
  const Row rows[] = {
      {"a\xC3\xA9\xE2\x82\xAC", OLESTR("a\u00E9\u20AC"), true},
      {"\xF0\x9F\x98\x80z", OLESTR("\U0001F600z"), true},
      // The first and the last character of each length.
      {"\x7F\xC2\x80\xDF\xBF\xE0\xA0\x80\xED\x9F\xBF", OLESTR("\x7F\u0080\u07FF\u0800\uD7FF"),
       true},
      {"\xEE\x80\x80\xEF\xBF\xBF\xF0\x90\x80\x80\xF4\x8F\xBF\xBF",
       OLESTR("\uE000\uFFFF\U00010000\U0010FFFF"), true},
      {"\xC0\x80", OLESTR("\uFFFD\uFFFD"), false},
      {"\xE2\x82", OLESTR("\uFFFD"), false},
      {"\xE2\x28\xA1", OLESTR("\uFFFD(\uFFFD"), false},
      {"\xED\xA0\x80", OLESTR("\uFFFD\uFFFD"), false},
      {"\xF4\x90\x80\x80", OLESTR("\uFFFD\uFFFD\uFFFD"), false},
      {"\xF0\x9F\x98z", OLESTR("\uFFFDz"), false},
      {"\xE2\x82\xC3\xA9", OLESTR("\uFFFD\u00E9"), false},
      {"\xFF", OLESTR("\uFFFD"), false},
  };
  for (const Row& row : rows) {
    SCOPED_TRACE(row.utf8);
    EXPECT_TRUE(row.wide == platform::WideFromUtf8(row.utf8));
    if (row.valid) {
      EXPECT_EQ(row.utf8, platform::Utf8Text(row.wide));
    }
    SetLastError(0);
    const int checked =
        MultiByteToWideChar(CP_UTF8, MB_ERR_INVALID_CHARS, row.utf8, -1, nullptr, 0);
    EXPECT_EQ(row.valid ? static_cast<int>(row.wide.size()) + 1 : 0, checked);
    EXPECT_EQ(row.valid ? DWORD{0} : DWORD{ERROR_NO_UNICODE_TRANSLATION}, GetLastError());
  }
  const OLECHAR lone[] = {0xD83D, 'x', 0xDE00};
  EXPECT_EQ("\xEF\xBF\xBDx\xEF\xBF\xBD", platform::Utf8Text(OleStringView(lone, 3)));
}

TEST(CodePage, AnswersSizesAndErrorsAsWindowsDoes) {
  struct Row {
    UINT codePage;
    const char* text;
    int length;
    int room;
    int result;
    DWORD error;
  };
  const Row rows[] = {
      {CP_ACP, "abc", 3, 3, 3, 0},
      {CP_ACP, "abc", 3, 0, 3, 0},
      {CP_ACP, "abc", -1, 4, 4, 0},
      {CP_ACP, "abc", -1, 0, 4, 0},
      {CP_ACP, "abc", -1, 3, 0, ERROR_INSUFFICIENT_BUFFER},
      {CP_ACP, "abc", 0, 4, 0, ERROR_INVALID_PARAMETER},
      {CP_ACP, nullptr, 3, 4, 0, ERROR_INVALID_PARAMETER},
      {CP_ACP, "abc", 3, -1, 0, ERROR_INVALID_PARAMETER},
      {59999, "abc", 3, 4, 0, ERROR_INVALID_PARAMETER},
      {CP_UTF8, "abc", -1, 4, 4, 0},
      {CP_UTF8, "abc", -1, 3, 0, ERROR_INSUFFICIENT_BUFFER},
  };
  const OLECHAR* const wideAbc = OLESTR("abc");
  for (const Row& row : rows) {
    SCOPED_TRACE(&row - rows);
    OLECHAR wide[5] = {0, 0, 0, 0, 0x7777};
    SetLastError(0);
    EXPECT_EQ(row.result,
              MultiByteToWideChar(row.codePage, 0, row.text, row.length, wide, row.room));
    EXPECT_EQ(row.error, GetLastError());
    EXPECT_EQ(OLECHAR{0x7777}, wide[4]);
    char narrow[5] = "\0\0\0~";
    SetLastError(0);
    EXPECT_EQ(row.result, WideCharToMultiByte(row.codePage, 0, row.text ? wideAbc : nullptr,
                                              row.length, narrow, row.room, nullptr, nullptr));
    EXPECT_EQ(row.error, GetLastError());
    if (row.room == 3) {
      EXPECT_EQ('~', narrow[3]);
    }
  }
}

}  // namespace
