#include "host/cli/help.h"

#include <algorithm>
#include <iterator>
#include <utility>

#include "host/cli/commands.h"
#include "host/fleet/health.h"
#include "host/service/nearest.h"

#ifndef WMIHOST_VERSION
#error "WMIHOST_VERSION is the program's version, given by the build"
#endif

namespace host {
namespace {

constexpr std::size_t kColumn = 28;  ///< column where explanations begin

std::string HelpLine(const std::string& name, const std::string& help) {
  const std::size_t used = 2 + name.size();
  return "  " + name + std::string(used + 1 < kColumn ? kColumn - used : 2, ' ') + help + '\n';
}

std::string Options(const std::vector<OptionRow>& rows) {
  std::string text;
  for (const OptionRow& row : rows) text += HelpLine(OptionText(row), row.help);
  return text;
}

/// Words that users of other programs may type, and the commands that they may mean.
struct GuessRow {
  const char* word;
  const char* advice;
};
constexpr GuessRow kGuesses[] = {
    {"list", "adapters, networks and classes list what their names say, enum CLASS any class"},
    {"scan", "networks shows what the adapters hear"},
    {"wifi", "status shows adapters and networks"},
    {"show", "status shows adapters and networks, get PATH one instance"},
    {"info", "status shows adapters and networks, describe CLASS what a class has"},
    {"interfaces", "adapters lists them"},
    {"devices", "adapters lists them"},
    {"radio", "put \"WiFi_NetworkAdapter.DeviceID='7'\" RadioState=false switches it off"},
    {"connect",
     "call \"WiFi_PreferredProfile.Name='NAME'\" ApplyProfile AdapterID=7 applies a profile"},
    {"profiles", "enum WiFi_PreferredProfile lists them"},
    {"select", "query \"SELECT ...\" takes a query"},
};

}  // namespace

const char* const kProgramVersion = WMIHOST_VERSION;

std::string OptionText(const OptionRow& row) {
  if (row.value == nullptr) return row.name;
  return row.name + std::string(row.takes == Takes::kNothing ? "" : " ") + row.value;
}

std::string Usage(const CommandRow& row, bool inShell) {
  std::string text = (inShell ? "" : "wmihost ") + std::string(row.name);
  for (const ArgumentRow& argument : row.arguments) {
    const std::string name = argument.name;
    text += IsRequired(argument)                              ? " " + name
            : argument.count == ArgumentRow::Count::kOptional ? " [" + name + "]"
                                                              : " [" + name + " ...]";
  }
  for (const OptionRow& option : row.options) text += " [" + OptionText(option) + "]";
  return text;
}

std::string Help(bool inShell) {
  std::string text = inShell ? ""
                             : "wmihost plays the management service for the WiFi adapter "
                               "provider.\n\nUsage: wmihost [options] COMMAND ...\n\n";
  text += "Commands:\n";
  for (const CommandRow& row : Commands()) {
    if (IsAvailable(row, inShell)) text += HelpLine(row.name, row.help);
  }
  text += "\nOptions:\n";
  if (!inShell) text += Options(HostOptions());
  text += Options(OutputOptions());
  if (!inShell) text += HelpLine("--help", "Show this, or one command: wmihost COMMAND --help");
  if (!inShell) text += HelpLine("--version", "Show the program's version");
  return text + "\nhelp COMMAND shows one command.\n";
}

std::string CommandHelp(const CommandRow& row, bool inShell) {
  std::string text = Usage(row, inShell) + "\n  " + row.help + ".\n";
  if (!row.arguments.empty() || !row.options.empty()) text += '\n';
  for (const ArgumentRow& argument : row.arguments) text += HelpLine(argument.name, argument.help);
  text += Options(row.options);
  text += "\nExamples:\n";
  for (const std::string& example : ExamplesOf(row, inShell)) text += "  " + example + "\n";
  text += "\nExit status:\n";
  for (int status = 0; row.isCheck && status < static_cast<int>(std::size(kHealthNames));
       ++status) {
    text += HelpLine(std::to_string(status), kHealthNames[status]);
  }
  if (row.isCheck) return text;
  for (const ExitStatus status : StatusesOf(row)) {
    text += HelpLine(std::to_string(status), kExitStatuses[status].meaning);
  }
  return text;
}

std::vector<std::string> ExamplesOf(const CommandRow& row, bool inShell) {
  constexpr std::string_view kStart = "wmihost ";
  std::vector<std::string> examples;
  for (const std::string_view example : row.examples) {
    const bool isOfProgram = example.starts_with(kStart);
    examples.emplace_back(inShell && isOfProgram ? example.substr(kStart.size()) : example);
  }
  return examples;
}

std::vector<ExitStatus> StatusesOf(const CommandRow& row) {
  std::vector<ExitStatus> statuses = {kSuccess, kUnexpected, kBadInput, kNotWritten};
  statuses.insert(statuses.end(), row.statuses.begin(), row.statuses.end());
  std::ranges::sort(statuses);
  return statuses;
}

ExitStatus RunHelp(const Command& command, CommandContext& context) {
  const bool inShell = context.inShell;
  const std::optional<std::string> name = command.Find("COMMAND");
  if (!name) {
    context.output << Help(inShell);
    return kSuccess;
  }
  const CommandRow* row = FindCommand(*name);
  if (row == nullptr || !IsAvailable(*row, inShell)) throw NoCommand(*name, inShell);
  context.output << CommandHelp(*row, inShell);
  return kSuccess;
}

CommandLineError NoCommand(const std::string& name, bool inShell) {
  const std::string start = "there is no command '" + name + "'";
  for (const GuessRow& guess : kGuesses) {
    if (SameIgnoringAsciiCase(guess.word, name))
      return CommandLineError(start + "; " + guess.advice);
  }
  return CommandLineError(start + DidYouMean(name, CommandNames(inShell)) +
                          "; help lists the commands");
}

}  // namespace host
