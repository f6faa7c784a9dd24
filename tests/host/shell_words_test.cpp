#include "host/cli/shell_words.h"

#include <gtest/gtest.h>

#include "host/cli/command.h"
#include "host/cli/completion.h"
#include "tests/host/toy.h"

namespace host {
namespace {

TEST(ShellLine, IsCutIntoWords) {
  const std::pair<const char*, std::vector<std::string>> rows[] = {
      {"  enum  Toy ", {"enum", "Toy"}},
      {R"(get Toy.Id="a b")", {"get", R"(Toy.Id="a b")"}},
      {R"(get Toy="a b")", {"get", R"(Toy="a b")"}},
      {R"(--format json get Toy.Id="a\" b")", {"--format", "json", "get", R"(Toy.Id="a\" b")"}},
      {R"(get "Toy.Id='a b'")", {"get", "Toy.Id='a b'"}},
      {R"(put Pair.Left="a",Right=1 Note="b c"'d"' x=\y)",
       {"put", R"(Pair.Left="a",Right=1)", R"(Note=b cd")", R"(x=\y)"}},
      {R"(query "SELECT * FROM Toy WHERE Id = 'x\"y\\z\%'")",
       {"query", R"(SELECT * FROM Toy WHERE Id = 'x"y\z\%')"}},
      {R"(query 'a "b" \c')", {"query", R"(a "b" \c)"}},
      {R"(select * FROM Toy  WHERE Id = "x" --format csv)",
       {"query", R"(select * FROM Toy  WHERE Id = "x")", "--format", "csv"}},
      {"QUERY select * FROM Toy WHERE Id = 'x' --format csv",
       {"query", "select * FROM Toy WHERE Id = 'x'", "--format", "csv"}},
      {"? enum", {"help", "enum"}},
      {"''", {""}},
      {"", {}},
  };
  for (const auto& [line, words] : rows) EXPECT_EQ(SplitShellLine(line), words) << line;
  EXPECT_THROW(SplitShellLine("get 'x"), CommandLineError);
  EXPECT_THROW(SplitShellLine(R"(put x Note="x\")"), CommandLineError);
}

TEST(Completion, OffersWhatThePlaceTakes) {
  const auto paths = [](const std::string& className) {
    return std::vector<std::string>{className + ".Id=\"a\"", className + ".Id=\"b\""};
  };
  const auto members = [](const std::string& typed) {
    return std::vector<std::string>{typed + "Power=", "other/", typed + "\u202e"};
  };
  const std::tuple<const char*, std::size_t, std::vector<std::string>> rows[] = {
      {"en", 0, {"enum"}},
      {"SEL", 0, {"SELECT"}},
      {"enum to", 5, {"Toy"}},
      {"enum Toy\t", 9, {}},
      {"help de", 5, {"delete", "describe"}},
      {"get To", 4, {"Toy."}},
      {"get Toy.", 4, {"Toy.Id=\"a\"", "Toy.Id=\"b\""}},
      {"put Toy.Id=\"a\" n", 15, {"Note="}},
      {"call Toy.Id=\"a b\" ", 18, {"Reset", "Stop"}},
      {"call Toy.Id=\"a\" Reset ", 22, {"Level=", "Why="}},
      {"enum Toy --fo", 9, {"--format"}},
      {"query --pro", 6, {"--provider"}},
      {"enum Toy --format j", 18, {"json"}},
      {"enum Toy --fields Id,co", 18, {"Id,Count"}},
      {"query \"SELECT * FROM To", 21, {"Toy"}},
      {"SELECT * FROM Toy WHERE Co", 24, {"Count"}},
      {"set a=1 adapters/0/tx", 8, {"adapters/0/txPower="}},
      {"reload " DOCS_FOLDER "sc", 7, {DOCS_FOLDER "scenarios.md"}},
      {"reload no-such-folder/", 7, {}},
  };
  for (const auto& [line, start, words] : rows) {
    const auto completion = CompleteLine(line, ToyRepository(), paths, members);
    EXPECT_EQ(completion.words, words) << line;
    EXPECT_EQ(completion.start, start) << line;
  }
}

}  // namespace
}  // namespace host
