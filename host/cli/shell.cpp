#include "host/cli/shell.h"

#include <charconv>
#include <iostream>
#include <sstream>
#include <utility>

#include "host/cli/command_line.h"
#include "host/cli/commands.h"
#include "host/cli/completion.h"
#include "host/cli/help.h"
#include "host/cli/provider_host.h"
#include "host/cli/run_command.h"
#include "host/cli/scenario_file.h"
#include "host/cli/shell_words.h"
#include "host/os/os.h"
#include "scenario/text_file.h"

namespace host {
namespace {

constexpr int kMostStatus = 255;

/// The object paths of a class's instances at this moment.
std::vector<std::string> PathsOf(CommandContext& context, const std::string& className) {
  std::vector<std::string> paths;
  if (context.session == nullptr || context.repository.FindClass(className) == nullptr)
    return paths;
  for (const CimObject& instance : context.session->Enumerate(className).objects) {
    if (const auto path = instance.RelativePath()) paths.push_back(*path);
  }
  return paths;
}

/// The machine whose adapters the commands concern.
std::string MachineOf(const CommandContext& context) {
  if (context.provider == nullptr || !context.provider->IsSimulated()) return "this machine";
  return "simulated machine of " + VisibleText(context.scenario->Name());
}

}  // namespace

LineSource LinesOf(std::istream& input) {
  return [&input]() -> std::optional<std::string> {
    std::string line;
    if (!std::getline(input, line)) return std::nullopt;
    return line;
  };
}

Shell::Shell(LineSource input, CommandContext& context, std::string name, bool echo)
    : input_(std::move(input)), context_(context), name_(std::move(name)), echo_(echo) {}

ExitStatus Shell::Run(const Command& defaults) {
  context_.inShell = true;
  ExitStatus status = kSuccess;
  while (std::optional<std::string> next = input_()) {
    std::string& line = *next;
    ++lineNumber_;
    const std::size_t start = line.find_first_not_of(" \t\r");
    if (start == std::string::npos || line[start] == '#') continue;
    line = line.substr(start, line.find_last_not_of(" \t\r") + 1 - start);
    if (echo_) context_.output << "> " << line << '\n' << std::flush;
    const ExitStatus ended = RunLine(line, defaults);
    if (context_.leave) return context_.leaveStatus.value_or(status);
    status = Worse(status, ended);
    // Without its output a change would go unnoticed.
    if (!(context_.output << std::flush)) break;
  }
  return status;
}

ExitStatus Shell::RunLine(const std::string& line, const Command& defaults) {
  if (!name_.empty()) context_.place = name_ + ":" + std::to_string(lineNumber_) + ": ";
  try {
    const CommandLine parsed = ParseShellCommand(SplitShellLine(line), defaults);
    if (parsed.information) {
      context_.output << *parsed.information;
      return kSuccess;
    }
    return RunCommand(parsed.command, context_);
  } catch (const CommandLineError& error) {
    return context_.Fail(kBadInput, error.what());
  }
}

ExitStatus RunShell(const Command& command, CommandContext& context) {
  const std::optional<std::string> path = command.Find("FILE");
  if (path && *path != "-") {
    std::istringstream lines(simulator::ReadTextFile(*path));
    return Shell(LinesOf(lines), context, *path, true).Run(command);
  }
  if (path || !os::IsTerminal(0)) {
    return Shell(LinesOf(std::cin), context, "standard input", false).Run(command);
  }
  os::LineEditor editor(
      [&context](const std::string& before) {
        return CompleteLine(
            before, context.repository,
            [&context](const std::string& className) { return PathsOf(context, className); },
            [&context](const std::string& typed) {
              return context.provider == nullptr ? std::vector<std::string>()
                                                 : context.provider->MembersFor(typed);
            });
      },
      os::HistoryFile());
  context.output << "wmihost " << kProgramVersion << ", " << MachineOf(context)
                 << ". help lists the commands, Tab completes, exit ends.\n";
  const LineSource typed = [&editor] { return editor.Read("wmihost> "); };
  return Shell(typed, context, "", false).Run(command);
}

ExitStatus RunExit(const Command& command, CommandContext& context) {
  if (const std::optional<std::string> text = command.Find("STATUS")) {
    int number = -1;
    const char* end = text->data() + text->size();
    const auto [stop, error] = std::from_chars(text->data(), end, number);
    if (error != std::errc() || stop != end || number < 0 || number > kMostStatus) {
      throw CommandLineError("exit: '" + *text + "' is no number from 0 to 255");
    }
    context.leaveStatus = static_cast<ExitStatus>(number);
  }
  context.leave = true;
  return kSuccess;
}

}  // namespace host
