#include "host/cli/help.h"

#include <algorithm>
#include <utility>

#include "host/cli/commands.h"
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
    text += MustStand(argument)                               ? " " + name
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
    if (MayStand(row, inShell)) text += HelpLine(row.name, row.help);
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
  text += "\nExit status:\n";
  for (const ExitStatus status : StatusesOf(row)) {
    text += HelpLine(std::to_string(status), kExitStatuses[status].meaning);
  }
  return text;
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
  if (row == nullptr || !MayStand(*row, inShell)) throw NoCommand(*name, inShell);
  context.output << CommandHelp(*row, inShell);
  return kSuccess;
}

CommandLineError NoCommand(const std::string& name, bool inShell) {
  return CommandLineError("there is no command '" + name + "'" +
                          DidYouMean(name, CommandNames(inShell)) + "; help lists the commands");
}

}  // namespace host
