#include <gtest/gtest.h>

#include <algorithm>
#include <fstream>
#include <iostream>
#include <set>
#include <sstream>
#include <stdexcept>

#include "host/cli/command_line.h"
#include "host/cli/command_table.h"
#include "host/cli/help.h"
#include "host/cli/run_command.h"
#include "host/cli/run_host.h"
#include "host/cli/shell.h"
#include "host/cli/shell_words.h"
#include "tests/host/fake_provider.h"
#include "tests/host/toy.h"

namespace host {
namespace {

TEST(CommandLineOptions, StandBeforeOrAfterTheCommand) {
  for (const std::vector<std::string>& arguments :
       {std::vector<std::string>{"--format", "csv", "--fields", "A,B", "--os-version", "5.1",
                                 "enum", "Toy"},
        std::vector<std::string>{"enum", "Toy", "--format=CSV", "--fields=A,B", "--os-version",
                                 "5.1"}}) {
    const CommandLine line = ParseCommandLine(arguments);
    EXPECT_STREQ(line.command.row->name, "enum");
    EXPECT_EQ(line.command.Text("CLASS"), "Toy");
    EXPECT_EQ(line.command.format, OutputFormat::kCsv);
    EXPECT_EQ(line.command.fields, (std::vector<std::string>{"A", "B"}));
    EXPECT_EQ(line.command.Text("--os-version"), "5.1");
  }
  const CommandLine put = ParseCommandLine({"put", R"(\\.\root\cimv2:T.K="/x")", "A=-1", "B=--x"});
  EXPECT_EQ(put.command.Text("PATH"), R"(\\.\root\cimv2:T.K="/x")");
  EXPECT_EQ(put.command.All("NAME=VALUE"), (std::vector<std::string>{"A=-1", "B=--x"}));
}

TEST(CommandLineOptions, AreRefusedInOneLine) {
  const std::pair<std::vector<std::string>, const char*> rows[] = {
      {{}, "a command is expected"},
      {{"fly"}, "there is no command 'fly'; help lists"},
      {{"emun", "A"}, "did you mean enum?"},
      {{"SCAN"}, "there is no command 'SCAN'; networks shows"},
      {{"list"}, "; adapters, networks and classes list"},
      {{"enum"}, "CLASS"},
      {{"enum", "A", "B"}, "'B' is one argument too many; see help enum"},
      {{"enum", "A", "--feilds=x"}, "no option '--feilds' here (did you mean --fields?)"},
      {{"set", "A"}, "there is no command 'set'"},
      {{"enum", "A", "--format", "xml"}, "--format: 'xml' is not table, list, json, csv or chart"},
      {{"enum", "A", "--fields", "A,,B"}, "--fields"},
      {{"--scenario", "", "classes"}, "--scenario: the name is empty"},
      {{"enum", "A", "--os-version", "six"}, "--os-version: 'six' is not of the form MAJOR.MINOR"},
      {{"enum", "A", "--os-version", "6.1.2"}, "MAJOR.MINOR"},
      {{"--service", "--timeout", "1.5", "classes"}, "'1.5' is no number of seconds"},
      {{"call", "P"}, "METHOD"},
      {{"dump", "--format", "csv"}, "dump takes table, list or json"},
      {{"dump", "--fields", "A"}, "dump takes none"},
      {{"dump", "--sort", "-A"}, "--sort: dump takes none"},
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

/// Accepts no output, and throws when it is read.
class BrokenBuffer : public std::streambuf {
 protected:
  int_type underflow() override { throw std::runtime_error("broken"); }
};

TEST(ProgramTest, EndsWithEveryStatusOfTheTable) {
  struct Row {
    ExitStatus status;
    std::vector<std::string> arguments;
    const char* error;
  };
  const Row rows[] = {
      {kSuccess, {"classes"}, ""},
      {kUnexpected, {"--module", DEFECTIVE_MODULE, "shell", "-"}, "wmihost: broken\n"},
      {kBadInput, {"fly"}, "there is no command 'fly'"},
      {kNotFound, {"describe", "Nothing"}, "no such class"},
      {kRefused, {"--module", "missing", "dump"}, "'missing' cannot be loaded"},
      {kDefective, {"--module", DEFECTIVE_MODULE, "enum", "WiFi_SystemPolicies"}, "defect: "},
      {kNotWritten, {"classes"}, "standard output could not be written whole"},
  };
  // kUnanswered needs a service.
  ASSERT_EQ(std::size(rows) + 1, std::size(kExitStatuses));
  BrokenBuffer broken;
  std::streambuf* const input = std::cin.rdbuf(&broken);
  std::cin.exceptions(std::ios::badbit);
  for (const Row& row : rows) {
    std::ostringstream output;
    std::ostringstream errors;
    std::ostream full(&broken);
    EXPECT_EQ(RunProgram(row.arguments, row.status == kNotWritten ? full : output, errors),
              row.status);
    EXPECT_NE(errors.str().find(row.error), std::string::npos) << errors.str();
    EXPECT_EQ(errors.str().empty(), row.status == kSuccess) << errors.str();
  }
  std::cin.exceptions(std::ios::goodbit);
  std::cin.rdbuf(input);
}

/// The set of a document's lines.
std::set<std::string> LinesOfDocument(const char* file) {
  std::ifstream document(std::string(DOCS_FOLDER) + file);
  std::set<std::string> lines;
  for (std::string line; std::getline(document, line);) lines.insert(line);
  return lines;
}

TEST(CommandTable, HasExamplesThatAreCommandLines) {
  for (const CommandRow& row : Commands()) {
    EXPECT_GE(row.examples.size(), 2u) << row.name;
    EXPECT_LE(row.examples.size(), 3u) << row.name;
    for (const std::string example : row.examples) {
      const std::string program = "wmihost ";
      const std::size_t start = example.find(program);
      const bool inShell = start == std::string::npos;
      // The part of the line for the system's own shell is not checked.
      const std::string line = inShell ? example : example.substr(start + program.size());
      const std::vector<std::string> words =
          SplitShellLine(line.substr(0, inShell ? line.size() : line.find_first_of("|><)")));
      const CommandLine parsed =
          inShell ? ParseShellCommand(words, Command()) : ParseCommandLine(words);
      ASSERT_NE(parsed.command.row, nullptr) << example;
      EXPECT_STREQ(parsed.command.row->name, row.name) << example;
    }
  }
}

TEST(CommandTable, StandsInTheDocument) {
  const std::set<std::string> lines = LinesOfDocument("wmihost.md");
  for (const ExitStatusRow& status : kExitStatuses) {
    std::string who;
    std::size_t count = 0;
    for (const CommandRow& row : Commands()) {
      if (std::ranges::count(StatusesOf(row), status.status) == 0) continue;
      who += std::string(who.empty() ? "`" : ", `") + row.name + "`";
      ++count;
    }
    if (count == Commands().size()) who = "every command";
    const std::string line =
        "| " + std::to_string(status.status) + " | " + status.meaning + " | " + who + " |";
    EXPECT_TRUE(lines.contains(line)) << line;
  }
  const auto isThere = [&lines](const std::string& begin) {
    return std::ranges::any_of(lines,
                               [&](const std::string& line) { return line.starts_with(begin); });
  };
  for (const CommandRow& row : Commands()) {
    const std::string begin = "| `" + Usage(row, true);
    EXPECT_TRUE(isThere(begin + "`")) << begin;
  }
  for (const auto* options : {&HostOptions(), &OutputOptions()}) {
    for (const OptionRow& row : *options) {
      EXPECT_TRUE(isThere("| `" + OptionText(row) + "`")) << OptionText(row);
    }
  }
}

/// Commands with a provider that has one Toy and accepts every put.
class CommandTest : public ::testing::Test {
 protected:
  CommandTest() {
    EXPECT_EQ(session_.Start(provider_.factory()), S_OK);
    provider_.services.steps = [this](Request& request) { return Serve(request); };
    provider_.services.onPut = [this](Request& request) {
      toy_ = ClassObject::From(request.object)->object();
      request.sink->SetStatus(0, S_OK, nullptr, nullptr);
      return S_OK;
    };
  }

  HRESULT Serve(Request& request) {
    const std::string text = platform::Utf8Text(request.text.view());
    HRESULT status = WBEM_E_INVALID_CLASS;
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
    return RunCommand(ParseShellCommand(SplitShellLine(line.find("--format") == std::string::npos
                                                           ? line + " --format json"
                                                           : line),
                                        Command())
                          .command,
                      context_);
  }

  CimObject toy_ = NewToy("a", 1);
  ObjectPool pool_;
  Defects defects_{[](const std::string& sentence) { ADD_FAILURE() << sentence; }};
  FakeProvider provider_;
  ProviderSession session_{ToyRepository(), {}, defects_};
  std::ostringstream output_;
  std::ostringstream errors_;
  CommandContext context_{ToyRepository(), &session_, output_, errors_, 100};
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
      {"enum Toy --sort Size", kBadInput, "", "Toy has no property 'Size'; it has Id"},
      {"enum Toy --sort -count", kSuccess, kToy, ""},
      {"enum Toy --fields ALL", kSuccess, kToy, ""},
      {"enum Nothing", kNotFound, "", "Nothing: WBEM_E_INVALID_CLASS (0x80041010): no such class"},
      {"get Toy.Id=\"a\"", kSuccess, kToy, ""},
      {"query \"SELECT * FROM Toy WHERE Count = 2\"", kSuccess, "[]\n", ""},
      {"query \"SELECT Count FROM Toy\"", kSuccess, "[\n  {\n    \"Count\": 1\n  }\n]\n", ""},
      {"query \"SELECT\"", kBadInput, "", "query: character 7: expected"},
      {"query \"SELECT anything\" --provider", kSuccess, kToy, ""},
      {"get Toy.Id=\"a\" --paths --fields __CLASS,Count", kSuccess,
       "[\n  {\n    \"__RELPATH\": \"Toy.Id=\\\"a\\\"\",\n    \"__CLASS\": \"Toy\",\n    "
       "\"Count\": "
       "1\n  }\n]\n",
       ""},
      {"SELECT __path FROM Toy", kSuccess,
       "[\n  {\n    \"__PATH\": \"\\\\\\\\.\\\\root\\\\cimv2:Toy.Id=\\\"a\\\"\"\n  }\n]\n", ""},
      {"SELECT * FROM Toy WHERE On = 'x'", kBadInput, "",
       "On is a boolean; it is compared with TRUE"},
      {"REFERENCES OF {Toi.Id=\"a\"}", kNotFound, "", "did you mean Toy?"},
      {"ASSOCIATORS OF {Toy.Id=\"a}\"} WHERE ClassDefsOnly", kBadInput, "",
       "'ClassDefsOnly' is not served here"},
      {"ASSOCIATORS OF {Toy.Id=\"a\\\"}\"}", kSuccess, "[]\n", ""},
      {"REFERENCES OF {Toy.Id=\"a\"} WHERE AssocClass = Toy", kBadInput, "",
       "'AssocClass' is not served here; REFERENCES OF takes ResultClass and Role"},
      {"put Toy.Id=\"a\" Note=x", kSuccess,
       "[\n  {\n    \"Property\": \"Note\",\n    \"Old\": \"none\",\n    \"Asked\": \"x\",\n    "
       "\"New\": \"x\"\n  }\n]\n",
       ""},
      {"put Toy.Id=\"a\" Count=2", kBadInput, "", "'Count' cannot be set; it takes Note (string)"},
      {"put Toy.Id=\"a\" Note", kBadInput, "", "not of the form Name=value"},
      {"put Pair.Left=\"a\"", kNotFound, "",
       "no such class; its keys are Left, Right, Flag, and the case of its letters counts"},
      {"call Toy.Id=\"a\" Start", kBadInput, "", "its methods are Reset, Stop"},
      {"call Toy.Id=\"a\" Stopp", kBadInput, "", "no method 'Stopp' (did you mean Stop?)"},
      {"call Toy.Id=\"a\" reset LEVEL=1", kBadInput, "",
       "Reset: in-parameters are missing: Why (string)"},
      {"get Id=a", kNotFound, "",
       "type wmihost get 'Base.Id=\"a\"', in cmd and PowerShell wmihost get \"Base.Id='a'\""},
      {"ASSOCIATORS OF {Toy.Id=a}", kBadInput, "", "need quotes: {Toy.Id=\"a\"}"},
      {"ASSOCIATORS OF {Toy.Id='a}'};", kSuccess, "[]\n", ""},
      {"query 'SELECT' Id FROM Toy WHERE Id = a", kBadInput, "",
       "; your shell may have changed it"},
      {"query 'SELECT' Count 'FROM Toy;'", kSuccess, "[\n  {\n    \"Count\": 1\n  }\n]\n", ""},
      {"SELECT __CLASS FROM meta_class WHERE __SUPERCLASS = 'Base'", kSuccess,
       "[\n  {\n    \"__CLASS\": \"Toy\"\n  }\n]\n", ""},
      {"call Toy.Id=\"a\" Reset Level=x", kBadInput, "", "Level: 'x' is no value of type sint32"},
      {"call Toy.Id=\"a\" Stop --fields Bad", kBadInput, "", "no property 'Bad'"},
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

TEST_F(CommandTest, PutSaysWhatTheProviderDidNotTake) {
  provider_.services.onPut = [](Request& request) {
    request.sink->SetStatus(0, S_OK, nullptr, nullptr);
    return HRESULT{S_OK};
  };
  EXPECT_EQ(Run("put Toy.Id=\"a\" Note=x --format table"), kRefused);
  EXPECT_EQ(output_.str(), "Note  none \xE2\x86\x92 x  refused, still none\n");
}

TEST_F(CommandTest, DumpKeepsWhatWorksAndReportsTheRest) {
  EXPECT_EQ(Run("dump"), kNotFound);
  Json dump = Json::parse(output_.str());
  EXPECT_EQ(dump["wmihost"][0]["Failures"].dump(),
            R"(["Base 0x80041010","Pair 0x80041010","Only 0x80041010"])");
  dump.erase("wmihost");
  EXPECT_EQ(dump.dump(), R"({"Base":[],"Toy":[{"Id":"a","Count":1}],"Pair":[],"Only":[]})");
  EXPECT_NE(errors_.str().find("wmihost: Pair: WBEM_E_INVALID_CLASS"), std::string::npos);
}

TEST_F(CommandTest, ShellRunsLinesAndKeepsTheWorstStatus) {
  std::istringstream input(
      "# a comment\n\nput Toy.Id=\"a\" Note=x\r\nenum Toy --fields Note\nfly\n"
      "enum Nothing\nexit\nenum Toy\n");
  Command defaults;
  defaults.format = OutputFormat::kCsv;
  EXPECT_EQ(Shell(LinesOf(input), context_, "lines", true).Run(defaults), kNotFound);
  EXPECT_EQ(output_.str(),
            "> put Toy.Id=\"a\" Note=x\nProperty,Old,Asked,New\nNote,none,x,x\n> enum Toy --fields "
            "Note\nNote\nx\n> fly\n> enum Nothing\n> exit\n");
  EXPECT_NE(errors_.str().find("wmihost: lines:5: "), std::string::npos) << errors_.str();
}

}  // namespace
}  // namespace host
