#include "host/format/format.h"

#include <gtest/gtest.h>

#include <sstream>

#include "host/format/visible_text.h"

namespace host {
namespace {

Json Rows() {
  return Json::parse(R"([
    {"Id": "a,\"b\"", "Count": -5, "On": true, "Tags": ["x", "y"]},
    {"Id": "line\nbreak", "Note": null, "Count": 10}
  ])");
}

TEST(Format, Json) {
  EXPECT_EQ(FormatRows(Json::array(), OutputFormat::kJson, 100), "[]\n");
  EXPECT_EQ(
      FormatRows(Json::parse(R"([{"B": "x\u00fc", "A": [1, null]}])"), OutputFormat::kJson, 100),
      "[\n  {\n    \"B\": \"x\xC3\xBC\",\n    \"A\": [\n      1,\n      null\n    ]\n  }\n]\n");
}

TEST(Format, JsonMendsTextThatIsNoUtf8) {
  EXPECT_EQ(JsonText(Json("a\xED\xA0\x80"
                          "b\xFF")),
            "\"a\xEF\xBF\xBD\xEF\xBF\xBD\xEF\xBF\xBD"
            "b\xEF\xBF\xBD\"\n");
}

TEST(Format, Csv) {
  EXPECT_EQ(FormatRows(Rows(), OutputFormat::kCsv, 100),
            "Id,Count,On,Tags,Note\n"
            "\"a,\"\"b\"\"\",-5,true,\"[\"\"x\"\",\"\"y\"\"]\",\n"
            "\"line\nbreak\",10,,,\n");
  EXPECT_EQ(FormatRows(Json::array(), OutputFormat::kCsv, 100), "");
  EXPECT_EQ(CsvText(Json::parse(R"([{"A":"a\rb"}])"), {}), "A\n\"a\rb\"\n");
  // A reader does not take an empty line for a row.
  EXPECT_EQ(FormatRows(Json::parse(R"([{"A":null},{"A":""},{}])"), OutputFormat::kCsv, 100, {"A"}),
            "A\n\"\"\n\"\"\n\"\"\n");
}

TEST(Format, TableAtATerminalWithColors) {
  EXPECT_EQ(FormatRows(Json::parse(R"([{"A":null,"B":1},{"A":"x"}])"), OutputFormat::kTable, 100,
                       {}, true),
            "\x1b[1mA     B\x1b[0m\n----  ----\n\x1b[2mNULL\x1b[0m  1\nx     \x1b[2mNULL\x1b[0m\n");
}

TEST(Format, List) {
  EXPECT_EQ(FormatRows(Rows(), OutputFormat::kList, 100),
            "Id    : a,\"b\"\nCount : -5\nOn    : true\nTags  : x, y\n\n"
            "Id    : line\\x0abreak\nNote  :\nCount : 10\n");
  EXPECT_EQ(CellText(Json("\x1F ~\x7F")), "\\x1f ~\\x7f");
}

TEST(Format, TableWithRowsThatFit) {
  EXPECT_EQ(FormatRows(Rows(), OutputFormat::kTable, 38),
            "Id             Count  On    Tags  Note\n"
            "-------------  -----  ----  ----  ----\n"
            "a,\"b\"          -5     true  x, y\n"
            "line\\x0abreak  10\n");
  EXPECT_EQ(FormatRows(Json::array(), OutputFormat::kTable, 100), "");
}

TEST(Format, TableTurnsRowsThatDoNotFit) {
  const Json rows = Json::parse(
      R"([{"A": "0123456789012345678901234567890123456789", "B": true, "C": 5},
          {"A": "x", "C": 6}, {"A": "y", "B": false}])");
  EXPECT_EQ(FormatRows(rows, OutputFormat::kTable, 32),
            "Property  Instance 1\n--------  ----------------------------------------\n"
            "A         0123456789012345678901234567890123456789\n"
            "B         true\nC         5\n\n"
            "Property  Instance 2  Instance 3\n--------  ----------  ----------\n"
            "A         x           y\nB                     false\nC         6\n");
  const Json two = Json::parse(R"([{"Name": "one", "Text": "longer than the width"}])");
  EXPECT_EQ(FormatRows(two, OutputFormat::kTable, 10),
            "Name  Text\n----  ---------------------\none   longer than the width\n");
}

TEST(VisibleText, LeadsNeitherATerminalNorALine) {
  const std::pair<const char*, const char*> rows[] = {
      {"caf\u00e9 \u65e5", "caf\u00e9 \u65e5"},
      {"a\x1b[2J\x7f", "a\\x1b[2J\\x7f"},
      {"\u0080\u009b1m\u009f\u00a0", "\\u0080\\u009b1m\\u009f\u00a0"},
      {"\u061c\u200e\u200f\u2010", "\\u061c\\u200e\\u200f\u2010"},
      {"\u2027\u2028\u202e\u202f", "\u2027\\u2028\\u202e\u202f"},
      {"\u2066\u2069\u206a", "\\u2066\\u2069\u206a"},
      {"\x9bm \xc0\x9b \xe2\x1bm \xe2", "\\x9bm \\u001b \xe2\\x1bm \xe2"},  // not UTF-8
  };
  for (const auto& [text, visible] : rows) {
    EXPECT_EQ(VisibleText(text), visible);
    EXPECT_EQ(CellText(text), visible);
  }
}

TEST(VisibleText, IsAllThatATerminalGets) {
  std::ostringstream terminal;
  {
    TerminalGuard guard(terminal);
    terminal << "[\"\u00e9\x7f\u0085\"]\n\x1b[2J" << std::flush << "\r";
    EXPECT_EQ(terminal.str(), "[\"\u00e9\\u007f\\u0085\"]\n\\u001b[2J");
  }
  terminal << "\n";
  EXPECT_EQ(terminal.str(), "[\"\u00e9\\u007f\\u0085\"]\n\\u001b[2J\\u000d\n");
}

TEST(VisibleText, IsNoLongerThanAScreenInAnError) {
  std::ostringstream errors;
  WriteError(errors, "x: '" + std::string(1'000'000, '\x01') + "\u20ac' is too long");
  EXPECT_LT(errors.str().size(), 80u * 24);
  EXPECT_TRUE(errors.str().starts_with("wmihost: x: '\\x01")) << errors.str();
  EXPECT_TRUE(errors.str().ends_with("\\x01\u20ac' is too long\n")) << errors.str();
  // Never half of a character, wherever the text is cut.
  for (std::size_t most = 12; most < 24; ++most) {
    const std::string cut =
        ShortText("\u20ac\u20ac\u20ac\u20ac\u20ac\u20ac\u20ac\u20ac\u20ac", most);
    EXPECT_EQ((cut.size() - std::string(" ... ").size()) % 3, 0u) << cut;
  }
}

TEST(Format, AlignsByDisplayWidth) {
  EXPECT_EQ(DisplayWidth("abc"), 3);
  EXPECT_EQ(DisplayWidth("\xC3\xBC"), 1);
  EXPECT_EQ(DisplayWidth("u\xCC\x88"), 1) << "a combining mark takes no column";
  EXPECT_EQ(DisplayWidth("\xE6\x97\xA5\xE6\x9C\xAC"), 4);
  EXPECT_EQ(DisplayWidth("\xF0\x9F\x98\x80"), 2);
  EXPECT_EQ(DisplayWidth("\uFF21\uFF5E"), 4) << "full-width letters";
  EXPECT_EQ(DisplayWidth("\uFF71"), 1) << "a half-width letter";
  EXPECT_EQ(DisplayWidth("a\xE6"), 2) << "a broken character ends with the text";
  EXPECT_EQ(TableText(Json::parse(R"([{"N": "\u65e5", "V": 1}, {"N": "abc", "V": 2}])"), 100),
            "N    V\n---  -\n\xE6\x97\xA5   1\nabc  2\n");
}

}  // namespace
}  // namespace host
