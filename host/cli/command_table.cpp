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

// The statuses with which a request to the provider may end.
const std::vector<ExitStatus> kOfRequests = {kNotFound, kRefused, kDefective};

}  // namespace

const std::vector<CommandRow>& Commands() {
  static const std::vector<CommandRow> rows = {
      {.name = "enum",
       .help = "Show all instances of a class",
       .arguments = {kClassName},
       .options = {kPaths},
       .needs = Needs::kProvider,
       .formats = kNetworkFormats,
       .takesFields = true,
       .statuses = kOfRequests,
       .run = RunEnum},
      {.name = "get",
       .help = "Show one instance",
       .arguments = {kObjectPath},
       .options = {kPaths},
       .needs = Needs::kProvider,
       .formats = kRowFormats,
       .takesFields = true,
       .statuses = kOfRequests,
       .run = RunGet},
      {.name = "query",
       .help = "Show the instances that a WQL query selects",
       .arguments =
           {{"WQL",
             "SELECT ... FROM CLASS [WHERE ...], ASSOCIATORS OF {PATH}, REFERENCES OF {PATH}",
             Takes::kQuery, Count::kWords}},
       .options = {kPaths, {"--provider", nullptr, "Hand the query to the provider unchanged"}},
       .needs = Needs::kProvider,
       .formats = kNetworkFormats,
       .takesFields = true,
       .statuses = kOfRequests,
       .run = RunQuery},
      {.name = "classes",
       .help = "List the classes",
       .needs = Needs::kScenario,
       .formats = kRowFormats,
       .run = RunClasses},
      {.name = "describe",
       .help = "Describe a class: properties and methods",
       .arguments = {kClassName},
       .needs = Needs::kScenario,
       .formats = kRowFormats,
       .statuses = {kNotFound},
       .run = RunDescribe},
      {.name = "dump",
       .help = "Show all instances of all classes",
       .needs = Needs::kProvider,
       .formats = {OutputFormat::kTable, OutputFormat::kList, OutputFormat::kJson},
       .statuses = kOfRequests,
       .run = RunDump},
      {.name = "report",
       .help = "Write all instances of all classes as a page to look at and to send",
       .needs = Needs::kProvider,
       .statuses = kOfRequests,
       .run = RunReport},
      {.name = "put",
       .help = "Change properties of an instance",
       .arguments = {kObjectPath, kAssignments},
       .needs = Needs::kProvider,
       .formats = kRowFormats,
       .statuses = kOfRequests,
       .run = RunPut},
      {.name = "call",
       .help = "Call a method of an instance",
       .arguments = {kObjectPath, {"METHOD", "method name", Takes::kMethod}, kAssignments},
       .needs = Needs::kProvider,
       .formats = kRowFormats,
       .takesFields = true,
       .statuses = kOfRequests,
       .run = RunCall},
      {.name = "delete",
       .help = "Delete an instance",
       .arguments = {kObjectPath},
       .needs = Needs::kProvider,
       .statuses = kOfRequests,
       .run = RunDelete},
      {.name = "shell",
       .help = "Run commands from a file or from standard input",
       .arguments = {{"FILE", "file with one command a line; standard input if missing or -",
                      Takes::kFile, Count::kOptional}},
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
       .needs = Needs::kProvider,
       .place = Place::kShell,
       .statuses = {kRefused},
       .run = RunSet},
      {.name = "reload",
       .help = "Start the simulated machine again, from its scenario or another",
       .arguments = {{"FILE", "another scenario file", Takes::kFile, Count::kOptional}},
       .needs = Needs::kProvider,
       .place = Place::kShell,
       .statuses = {kRefused, kDefective},
       .run = RunReload},
      {.name = "exit",
       .help = "End the shell with this status, or else with the worst of its lines",
       .arguments = {{"STATUS", "0 to 255", Takes::kText, Count::kOptional}},
       .place = Place::kShell,
       .run = RunExit},
      {.name = "quit",
       .help = "The same as exit",
       .arguments = {{"STATUS", "0 to 255", Takes::kText, Count::kOptional}},
       .place = Place::kShell,
       .run = RunExit},
      {.name = "scenario",
       .help = "Make a scenario of another machine's dump or of what a Linux machine sees",
       .options =
           {{"--from-iw", "[FILE]",
             "what 'iw dev <interface> scan' prints; standard input if missing or -", Takes::kFile},
            {"--from-dump", "[FILE]",
             "what dump --format json or report writes, or instances as ConvertTo-Json does; "
             "standard input if missing or -",
             Takes::kFile}},
       .place = Place::kCommandLine,
       .run = RunScenario},
      {.name = "reference",
       .help = "Print a reference as Markdown",
       .arguments = {{"TOPIC",
                      "classes (default) or scenarios",
                      Takes::kChoice,
                      Count::kOptional,
                      {"classes", "scenarios"}}},
       .place = Place::kCommandLine,
       .run = RunReference},
      {.name = "check",
       .help = "Check a schema: its grammar, and what it must hold to be served and understood",
       .arguments = {{"FILE", "MOF file (default: the product's own)", Takes::kFile,
                      Count::kOptional}},
       .place = Place::kCommandLine,
       .run = RunCheck},
      {.name = "help",
       .help = "Show all commands, or one",
       .arguments = {{"COMMAND", "command name", Takes::kCommand, Count::kOptional}},
       .run = RunHelp},
      {.name = "manual",
       .help = "Print the manual page, for man",
       .place = Place::kCommandLine,
       .run = RunManual},
      {.name = "completion",
       .help = "Print a completion script, for bash",
       .place = Place::kCommandLine,
       .run = RunCompletion},
      {.name = "register",
       .help = "Register the module as a COM server",
       .place = Place::kCommandLine,
       .statuses = {kRefused},
       .run = RunRegister},
      {.name = "unregister",
       .help = "Take the module's registration back",
       .place = Place::kCommandLine,
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
      {"--service", "[NAMESPACE]",
       "Ask the machine's own management service, on Windows (default: root\\cimv2; "
       "\\\\HOST\\root\\cimv2 is another machine's)",
       Takes::kText},
      {"--user", "NAME", "With --service: as this user; the password is asked for or read",
       Takes::kText},
      {"--os-version", "MAJOR.MINOR", "System version that the provider is told, such as 6.1",
       Takes::kVersion},
      {"--trace",
       "[=calls]",
       "Show the provider's trace lines on standard error, or its calls of the libraries",
       Takes::kNothing,
       {"calls"}},
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
    if (SameIgnoringAsciiCase(name, row.name)) return &row;
  }
  return nullptr;
}

}  // namespace host
