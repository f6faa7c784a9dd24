#include <gtest/gtest.h>

#include <sstream>

#include "host/cli/command_runner.h"
#include "host/cli/shell.h"
#include "tests/host/fake_provider.h"
#include "tests/host/toy.h"

namespace host {
namespace {

TEST(ShellLine, IsCutIntoWords) {
  const std::pair<const char*, std::vector<std::string>> rows[] = {
      {"  enum  Toy ", {"enum", "Toy"}},
      {R"(get Toy.Id="a b")", {"get", R"(Toy.Id="a b")"}},
      {R"(get Toy.Id="a\" b")", {"get", R"(Toy.Id="a\" b")"}},
      {R"(query "SELECT * FROM Toy WHERE Id = 'x\"y'")",
       {"query", R"(SELECT * FROM Toy WHERE Id = 'x"y')"}},
      {R"(query 'a "b" \c')", {"query", R"(a "b" \c)"}},
      {R"(put P Note="" x='1 2')", {"put", "P", R"(Note="")", "x='1 2'"}},
      {"''", {""}},
  };
  for (const auto& [line, words] : rows) EXPECT_EQ(SplitShellLine(line), words) << line;
  EXPECT_THROW(SplitShellLine("get 'x"), CommandLineError);
  EXPECT_THROW(SplitShellLine(R"(get "x\)"), CommandLineError);
}

TEST(CommandLineOptions, StandBeforeOrAfterTheCommand) {
  for (const std::vector<std::string>& arguments :
       {std::vector<std::string>{"--format", "csv", "--fields", "A,B", "--os-version", "5.1",
                                 "enum", "Toy"},
        std::vector<std::string>{"enum", "Toy", "--format=CSV", "--fields=A,B", "--os-version",
                                 "5.1"}}) {
    const CommandLine line = ParseCommandLine(arguments);
    EXPECT_EQ(line.command.name, CommandName::kEnum);
    EXPECT_EQ(line.command.target, "Toy");
    EXPECT_EQ(line.command.format, OutputFormat::kCsv);
    EXPECT_EQ(line.command.fields, (std::vector<std::string>{"A", "B"}));
    EXPECT_EQ(line.host.osVersion, std::make_pair(5u, 1u));
  }
  const CommandLine put = ParseCommandLine({"put", R"(\\.\root\cimv2:T.K="/x")", "A=-1", "B=--x"});
  EXPECT_EQ(put.command.target, R"(\\.\root\cimv2:T.K="/x")");
  EXPECT_EQ(put.command.assignments, (std::vector<std::string>{"A=-1", "B=--x"}));
}

TEST(CommandLineOptions, AreRefusedInOneLine) {
  const std::pair<std::vector<std::string>, const char*> rows[] = {
      {{}, "a command is expected"},
      {{"fly"}, "fly"},
      {{"enum"}, "CLASS"},
      {{"enum", "A", "B"}, "B"},
      {{"enum", "A", "--format", "xml"}, "--format takes table, list, json or csv"},
      {{"enum", "A", "--fields", "A,,B"}, "--fields"},
      {{"enum", "A", "--os-version", "six"}, "MAJOR.MINOR"},
      {{"enum", "A", "--os-version", "6.1.2"}, "MAJOR.MINOR"},
      {{"call", "P"}, "METHOD"},
      {{"dump", "--format", "csv"}, "csv"},
      {{"enum", "A", "--provider"}, "--provider"},
  };
  for (const auto& [arguments, part] : rows) {
    try {
      ParseCommandLine(arguments);
      ADD_FAILURE() << ::testing::PrintToString(arguments) << " was accepted";
    } catch (const CommandLineError& error) {
      const std::string message = error.what();
      EXPECT_NE(message.find(part), std::string::npos) << message;
      EXPECT_EQ(message.find('\n'), std::string::npos) << message;
    }
  }
}

/// Commands against a provider that has one Toy and takes what is put.
class CommandTest : public ::testing::Test {
 protected:
  CommandTest() {
    EXPECT_EQ(session_.Start(provider_.factory()), S_OK);
    provider_.services.steps = [this](Request& request) { return Serve(request); };
    provider_.services.onPut = [this](Request& request) {
      toy_ = ClassObject::From(request.object)->object();
      request.sink->SetStatus(0, S_OK, nullptr, nullptr);
      return HRESULT{S_OK};
    };
  }

  HRESULT Serve(Request& request) {
    const std::string text = platform::Utf8Text(request.text.view());
    HRESULT status = static_cast<HRESULT>(WBEM_E_INVALID_CLASS);
    if (ClassNameOfPath(text) == "Toy" || text.starts_with("SELECT")) {
      platform::ComPtr<ClassObject> object = pool_.New<ClassObject>(pool_, toy_);
      IWbemClassObject* plain = object.get();
      status = request.sink->Indicate(1, &plain);
    }
    request.sink->SetStatus(0, status, nullptr, nullptr);
    return status;
  }

  ExitStatus Run(const std::string& line) {
    output_.str("");
    errors_.str("");
    return runner_.Run(
        ParseShellCommand(SplitShellLine(line + " --format json"), Command()).command);
  }

  CimObject toy_ = NewToy("a", 1);
  ObjectPool pool_;
  Defects defects_{[](const std::string& sentence) { ADD_FAILURE() << sentence; }};
  FakeProvider provider_;
  ProviderSession session_{ToyRepository(), {}, defects_};
  std::ostringstream output_;
  std::ostringstream errors_;
  CommandRunner runner_{ToyRepository(), &session_, output_, errors_, 100};
};

TEST_F(CommandTest, AnswersWithStatusOutputAndOneErrorLine) {
  struct Row {
    const char* line;
    ExitStatus status;
    const char* output;
    const char* error;
  };
  constexpr const char* kToy = "[\n  {\n    \"Id\": \"a\",\n    \"Count\": 1\n  }\n]\n";
  const Row rows[] = {
      {"enum Toy", kSuccess, kToy, ""},
      {"enum toy --fields COUNT", kSuccess, "[\n  {\n    \"Count\": 1\n  }\n]\n", ""},
      {"enum Toy --fields Size", kBadInput, "", "Toy has no property 'Size'; it has Id"},
      {"enum Nothing", kNotFound, "", "Nothing: WBEM_E_INVALID_CLASS (0x80041010): no such class"},
      {"get Toy.Id=\"a\"", kSuccess, kToy, ""},
      {"query \"SELECT * FROM Toy WHERE Count = 2\"", kSuccess, "[]\n", ""},
      {"query \"SELECT Count FROM Toy\"", kSuccess, "[\n  {\n    \"Count\": 1\n  }\n]\n", ""},
      {"query \"SELECT\"", kBadInput, "", "query: character 7: expected"},
      {"query \"SELECT anything\" --provider", kSuccess, kToy, ""},
      {"put Toy.Id=\"a\" Note=x", kSuccess, "", ""},
      {"put Toy.Id=\"a\" Count=2", kBadInput, "", "'Count' cannot be set; it takes Note (string)"},
      {"put Toy.Id=\"a\" Note", kBadInput, "", "not of the form Name=value"},
      {"put Pair.Left=\"a\"", kNotFound, "", "WBEM_E_INVALID_CLASS"},
      {"call Toy.Id=\"a\" Start", kBadInput, "", "its methods are Reset, Stop"},
      {"call Toy.Id=\"a\" Reset Level=x", kBadInput, "", "'x' is no value of type sint32"},
      {"call Toy.Id=\"a\" Stop Level=1", kBadInput, "", "Stop takes no parameters"},
      {"delete Pair.Left=\"a\"", kNotFound, "", "delete Pair.Left=\"a\": WBEM_E_INVALID_CLASS"},
      {"describe Nothing", kNotFound, "", "WBEM_E_INVALID_CLASS"},
  };
  for (const Row& row : rows) {
    SCOPED_TRACE(row.line);
    EXPECT_EQ(Run(row.line), row.status);
    EXPECT_EQ(output_.str().substr(0, 200), row.output);
    EXPECT_NE(errors_.str().find(row.error), std::string::npos) << errors_.str();
    EXPECT_EQ(errors_.str().empty(), *row.error == '\0') << errors_.str();
    toy_ = NewToy("a", 1);
  }
}

TEST_F(CommandTest, PutChangesOnlyWhatIsNamed) {
  EXPECT_EQ(Run("put Toy.Id=\"a\" 'Note=b=c d'"), kSuccess);
  EXPECT_EQ(toy_.ToJson().dump(), R"({"Id":"a","Count":1,"Note":"b=c d"})");
}

TEST_F(CommandTest, DumpKeepsWhatWorksAndReportsTheRest) {
  EXPECT_EQ(Run("dump"), kNotFound);
  EXPECT_EQ(Json::parse(output_.str()).dump(),
            R"({"Base":[],"Toy":[{"Id":"a","Count":1}],"Pair":[],"Only":[]})");
  EXPECT_NE(errors_.str().find("wmihost: Pair: WBEM_E_INVALID_CLASS"), std::string::npos);
}

TEST_F(CommandTest, ShellRunsLinesAndKeepsTheWorstStatus) {
  std::istringstream input(
      "# a comment\n\nput Toy.Id=\"a\" Note=x\r\nenum Toy --fields Note\nfly\n"
      "enum Nothing\nexit\nenum Toy\n");
  Command defaults;
  defaults.format = OutputFormat::kCsv;
  EXPECT_EQ(Shell(LinesOf(input), output_, errors_, "lines", true).Run(runner_, defaults),
            kNotFound);
  EXPECT_EQ(
      output_.str(),
      "> put Toy.Id=\"a\" Note=x\n> enum Toy --fields Note\nNote\nx\n> fly\n> enum Nothing\n");
  EXPECT_NE(errors_.str().find("wmihost: lines:5: "), std::string::npos) << errors_.str();
}

}  // namespace
}  // namespace host
