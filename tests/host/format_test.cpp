#include "host/format/format.h"

#include <gtest/gtest.h>

#include <sstream>

#include "host/format/sort.h"
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
  EXPECT_EQ(
      FormatRows(Json::parse(R"([{"A":null,"B":1},{"A":"x"}])"), OutputFormat::kTable, 100, {},
                 true),
      "\x1b[1mA        B\x1b[0m\n----  ----\n\x1b[2mNULL\x1b[0m     1\nx     \x1b[2mNULL\x1b[0m\n");
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
            "a,\"b\"             -5  true  x, y\n"
            "line\\x0abreak     10\n");
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

TEST(Format, TableAlignsNumbersAtTheirEnd) {
  const Json rows = Json::parse(R"([
    {"N": 5, "Text": "-58 dBm", "Rate": "54.0 Mbps", "Mac": "00:1A", "Version": "4.0.2", "Band": "802.11g"},
    {"N": -10, "Text": "7 dBm", "Rate": "9 Mbps", "Mac": "02:1A", "Version": "11.0.2"}])");
  EXPECT_EQ(TableText(rows, 100),
            "  N     Text       Rate  Mac    Version  Band\n"
            "---  -------  ---------  -----  -------  -------\n"
            "  5  -58 dBm  54.0 Mbps  00:1A  4.0.2    802.11g\n"
            "-10    7 dBm     9 Mbps  02:1A  11.0.2\n");
}

TEST(Format, TableSaysOnceWhatIsEqualInAllRows) {
  Json rows =
      Json::parse(R"([{"Key": "7", "Where": "a place", "No": null, "Name": "one", "More": "x"},
                              {"Key": "7", "Where": "a place", "Name": "two", "More": "y"}])");
  EXPECT_EQ(TableText(rows, 20),
            "In all rows: Key 7;\nWhere a place; No\nNULL\n\nName  More\n----  ----\none   x\n"
            "two   y\n");
  EXPECT_TRUE(TableText(rows, 40).starts_with("Key  Where")) << "what fits stays as it is";
  rows[1] = rows[0];
  EXPECT_TRUE(TableText(rows, 20).starts_with("Property  Instance 1")) << "nothing would be left";
}

TEST(Format, TableBreaksLinesBetweenWords) {
  const Json rows =
      Json::parse(R"([{"Id": 1, "Is": true, "Text": "longer than there is room for it"},
                                    {"Id": 2, "Is": false, "Text": "anunbreakablewordofthirtyletters"}])");
  EXPECT_EQ(TableText(rows, 45),
            "Id  Is     Text\n--  -----  --------------------------------\n"
            " 1  true   longer than there is room for it\n"
            " 2  false  anunbreakablewordofthirtyletters\n");
  EXPECT_EQ(TableText(Json::array({rows[0], {{"Id", 2}, {"Is", false}, {"Text", "short"}}}), 36),
            "Id  Is     Text\n--  -----  -------------------------\n"
            " 1  true   longer than there is room\n           for it\n 2  false  short\n");
}

TEST(Format, SortsNumbersAlsoWithinTexts) {
  const Json values = Json::parse(
      R"(["-58 dBm", "-7 dBm", null, "b", "A", "10.1", 9, true, "inf", "-100", "", "00:1B", "00:1A"])");
  const auto sorted = [&](bool descending) {
    Json order = Json::array();
    for (const std::size_t index : SortedOrder(values, descending)) order.push_back(values[index]);
    return order.dump();
  };
  EXPECT_EQ(sorted(false),
            R"(["-100","-58 dBm","-7 dBm","00:1A","00:1B",true,9,"10.1","","A","b","inf",null])");
  EXPECT_EQ(sorted(true),
            R"(["inf","b","A","","10.1",9,true,"00:1B","00:1A","-7 dBm","-58 dBm","-100",null])");
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
