#include "host/cli/command_table.h"

#include <iterator>

#include "host/cli/commands.h"

namespace host {
namespace {

using Count = ArgumentRow::Count;

const ArgumentRow kClassName = {"CLASS", "class name", Takes::kClass};
const ArgumentRow kObjectPath = {"PATH", "object path, CLASS.KEY=\"value\"", Takes::kPath};
const ArgumentRow kAssignments = {"NAME=VALUE", "new values, or in-parameters", Takes::kAssignment,
                                  Count::kAny};

const std::vector<OutputFormat> kRowFormats = {OutputFormat::kTable, OutputFormat::kList,
                                               OutputFormat::kJson, OutputFormat::kCsv};
const std::vector<OutputFormat> kNetworkFormats = {OutputFormat::kTable, OutputFormat::kList,
                                                   OutputFormat::kJson, OutputFormat::kCsv,
                                                   OutputFormat::kChart};

const OptionRow kPaths = {"--paths", nullptr, "Begin each instance with its object path"};

// What a request of the provider may end with.
const std::vector<ExitStatus> kOfRequests = {kNotFound, kRefused, kDefective};

}  // namespace

const std::vector<CommandRow>& Commands() {
  static const std::vector<CommandRow> rows = {
      {.name = "enum",
       .help = "Show all instances of a class",
       .arguments = {kClassName},
       .options = {kPaths},
       .needs = Needs::kProvider,
       .place = Place::kEverywhere,
       .formats = kNetworkFormats,
       .takesFields = true,
       .statuses = kOfRequests,
       .run = RunEnum},
      {.name = "get",
       .help = "Show one instance",
       .arguments = {kObjectPath},
       .options = {kPaths},
       .needs = Needs::kProvider,
       .place = Place::kEverywhere,
       .formats = kRowFormats,
       .takesFields = true,
       .statuses = kOfRequests,
       .run = RunGet},
      {.name = "query",
       .help = "Show the instances that a WQL query selects",
       .arguments =
           {{"WQL",
             "SELECT ... FROM CLASS [WHERE ...], ASSOCIATORS OF {PATH}, REFERENCES OF {PATH}",
             Takes::kQuery}},
       .options = {kPaths, {"--provider", nullptr, "Hand the query to the provider unchanged"}},
       .needs = Needs::kProvider,
       .place = Place::kEverywhere,
       .formats = kNetworkFormats,
       .takesFields = true,
       .statuses = kOfRequests,
       .run = RunQuery},
      {.name = "classes",
       .help = "List the classes",
       .arguments = {},
       .options = {},
       .needs = Needs::kScenario,
       .place = Place::kEverywhere,
       .formats = kRowFormats,
       .takesFields = false,
       .statuses = {},
       .run = RunClasses},
      {.name = "describe",
       .help = "Describe a class: properties and methods",
       .arguments = {kClassName},
       .options = {},
       .needs = Needs::kScenario,
       .place = Place::kEverywhere,
       .formats = kRowFormats,
       .takesFields = false,
       .statuses = {kNotFound},
       .run = RunDescribe},
      {.name = "dump",
       .help = "Show all instances of all classes",
       .arguments = {},
       .options = {},
       .needs = Needs::kProvider,
       .place = Place::kEverywhere,
       .formats = {OutputFormat::kTable, OutputFormat::kList, OutputFormat::kJson},
       .takesFields = false,
       .statuses = kOfRequests,
       .run = RunDump},
      {.name = "report",
       .help = "Write all instances of all classes as a page to look at and to send",
       .arguments = {},
       .options = {},
       .needs = Needs::kProvider,
       .place = Place::kEverywhere,
       .formats = {},
       .takesFields = false,
       .statuses = kOfRequests,
       .run = RunReport},
      {.name = "put",
       .help = "Change properties of an instance",
       .arguments = {kObjectPath, kAssignments},
       .options = {},
       .needs = Needs::kProvider,
       .place = Place::kEverywhere,
       .formats = kRowFormats,
       .takesFields = false,
       .statuses = kOfRequests,
       .run = RunPut},
      {.name = "call",
       .help = "Call a method of an instance",
       .arguments = {kObjectPath, {"METHOD", "method name", Takes::kMethod}, kAssignments},
       .options = {},
       .needs = Needs::kProvider,
       .place = Place::kEverywhere,
       .formats = kRowFormats,
       .takesFields = true,
       .statuses = kOfRequests,
       .run = RunCall},
      {.name = "delete",
       .help = "Delete an instance",
       .arguments = {kObjectPath},
       .options = {},
       .needs = Needs::kProvider,
       .place = Place::kEverywhere,
       .formats = {},
       .takesFields = false,
       .statuses = kOfRequests,
       .run = RunDelete},
      {.name = "shell",
       .help = "Run commands from a file or from standard input",
       .arguments = {{"FILE", "file with one command a line; standard input if missing or -",
                      Takes::kFile, Count::kOptional}},
       .options = {},
       .needs = Needs::kProvider,
       .place = Place::kCommandLine,
       .formats = kRowFormats,
       .takesFields = true,
       .statuses = kOfRequests,
       .run = RunShell},
      {.name = "set",
       .help = "Change the simulated machine: members by their paths in the scenario",
       .arguments = {{"MEMBER=VALUE", "such as adapters/0/radioState=false", Takes::kText,
                      Count::kAny}},
       .options = {},
       .needs = Needs::kProvider,
       .place = Place::kShell,
       .formats = {},
       .takesFields = false,
       .statuses = {kRefused},
       .run = RunSet},
      {.name = "reload",
       .help = "Start the simulated machine again, from its scenario or another",
       .arguments = {{"FILE", "another scenario file", Takes::kFile, Count::kOptional}},
       .options = {},
       .needs = Needs::kProvider,
       .place = Place::kShell,
       .formats = {},
       .takesFields = false,
       .statuses = {kRefused, kDefective},
       .run = RunReload},
      {.name = "exit",
       .help = "End the shell with this status, or else with the worst of its lines",
       .arguments = {{"STATUS", "0 to 255", Takes::kText, Count::kOptional}},
       .options = {},
       .needs = Needs::kNothing,
       .place = Place::kShell,
       .formats = {},
       .takesFields = false,
       .statuses = {},
       .run = RunExit},
      {.name = "quit",
       .help = "The same as exit",
       .arguments = {{"STATUS", "0 to 255", Takes::kText, Count::kOptional}},
       .options = {},
       .needs = Needs::kNothing,
       .place = Place::kShell,
       .formats = {},
       .takesFields = false,
       .statuses = {},
       .run = RunExit},
      {.name = "scenario",
       .help = "Make a scenario of what a Linux machine sees",
       .arguments = {},
       .options = {{"--from-iw", "[FILE]",
                    "what 'iw dev <interface> scan' prints; standard input if missing or -",
                    Takes::kFile}},
       .needs = Needs::kNothing,
       .place = Place::kCommandLine,
       .formats = {},
       .takesFields = false,
       .statuses = {},
       .run = RunScenario},
      {.name = "reference",
       .help = "Print a reference as Markdown",
       .arguments = {{"TOPIC",
                      "classes (default) or scenarios",
                      Takes::kChoice,
                      Count::kOptional,
                      {"classes", "scenarios"}}},
       .options = {},
       .needs = Needs::kNothing,
       .place = Place::kCommandLine,
       .formats = {},
       .takesFields = false,
       .statuses = {},
       .run = RunReference},
      {.name = "help",
       .help = "Show all commands, or one",
       .arguments = {{"COMMAND", "command name", Takes::kCommand, Count::kOptional}},
       .options = {},
       .needs = Needs::kNothing,
       .place = Place::kEverywhere,
       .formats = {},
       .takesFields = false,
       .statuses = {},
       .run = RunHelp},
      {.name = "manual",
       .help = "Print the manual page, for man",
       .arguments = {},
       .options = {},
       .needs = Needs::kNothing,
       .place = Place::kCommandLine,
       .formats = {},
       .takesFields = false,
       .statuses = {},
       .run = RunManual},
      {.name = "completion",
       .help = "Print a completion script, for bash",
       .arguments = {},
       .options = {},
       .needs = Needs::kNothing,
       .place = Place::kCommandLine,
       .formats = {},
       .takesFields = false,
       .statuses = {},
       .run = RunCompletion},
      {.name = "register",
       .help = "Register the module as a COM server",
       .arguments = {},
       .options = {},
       .needs = Needs::kNothing,
       .place = Place::kCommandLine,
       .formats = {},
       .takesFields = false,
       .statuses = {kRefused},
       .run = RunRegister},
      {.name = "unregister",
       .help = "Take the module's registration back",
       .arguments = {},
       .options = {},
       .needs = Needs::kNothing,
       .place = Place::kCommandLine,
       .formats = {},
       .takesFields = false,
       .statuses = {kRefused},
       .run = RunUnregister},
  };
  return rows;
}

const std::vector<OptionRow>& HostOptions() {
  static const std::vector<OptionRow> rows = {
      {"--scenario", "FILE", "Scenario file that the simulator plays", Takes::kFile},
      {"--module", "FILE", "The provider's module (default: beside this program)", Takes::kFile},
      {"--registered", nullptr, "Reach the module through its registration instead of by file"},
      {"--libraries", "DIR",
       "Folder of QuarnApi and TolvaApi (default: where the system finds them)", Takes::kFolder},
      {"--registry", "FILE", "File that keeps the registry, where the system has none",
       Takes::kFile},
      {"--os-version", "MAJOR.MINOR", "System version that the provider is told, such as 6.1",
       Takes::kVersion},
      {"--trace", nullptr, "Show the provider's trace lines on standard error"},
  };
  return rows;
}

const std::vector<OptionRow>& OutputOptions() {
  static const std::vector<OptionRow> rows = {
      {.name = "--format",
       .value = "FORMAT",
       .help = "table, list, json or csv; chart draws networks",
       .takes = Takes::kChoice,
       .choices = {std::begin(kFormatNames), std::end(kFormatNames)}},
      {"--width", "COLUMNS",
       "Columns that a table may fill (default: COLUMNS, the terminal's, 100)", Takes::kWidth},
      {.name = "--color",
       .value = "WHEN",
       .help = "Bold headings and dim NULLs in tables: auto, always or never",
       .takes = Takes::kChoice,
       .choices = {"auto", "always", "never"}},
      {"--fields", "A,B,...", "Show only these properties, in this order", Takes::kProperties},
  };
  return rows;
}

bool MayStand(const CommandRow& row, bool inShell) {
  return row.place == Place::kEverywhere ||
         row.place == (inShell ? Place::kShell : Place::kCommandLine);
}

std::vector<std::string> CommandNames(bool inShell) {
  std::vector<std::string> names;
  for (const CommandRow& row : Commands()) {
    if (MayStand(row, inShell)) names.emplace_back(row.name);
  }
  return names;
}

const CommandRow* FindCommand(const std::string& name) {
  for (const CommandRow& row : Commands()) {
    if (SameName(name, row.name)) return &row;
  }
  return nullptr;
}

}  // namespace host
