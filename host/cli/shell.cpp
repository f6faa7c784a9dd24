#include "host/cli/shell.h"

#include <string>
#include <utility>

namespace host {

LineSource LinesOf(std::istream& input) {
  return [&input]() -> std::optional<std::string> {
    std::string line;
    if (!std::getline(input, line)) return std::nullopt;
    return line;
  };
}

Shell::Shell(LineSource input, std::ostream& output, std::ostream& errors, std::string name,
             bool echo)
    : input_(std::move(input)),
      output_(output),
      errors_(errors),
      name_(std::move(name)),
      echo_(echo) {}

ExitStatus Shell::Run(CommandRunner& runner, const Command& defaults) {
  ExitStatus status = kSuccess;
  while (std::optional<std::string> next = input_()) {
    std::string& line = *next;
    ++lineNumber_;
    if (line.ends_with('\r')) line.pop_back();
    const std::size_t start = line.find_first_not_of(" \t");
    if (start == std::string::npos || line[start] == '#') continue;
    const std::string word = line.substr(start, line.find_last_not_of(" \t") + 1 - start);
    if (word == "exit" || word == "quit") return status;
    if (echo_) output_ << "> " << word << '\n' << std::flush;
    status = Worse(status, RunLine(word == "help" ? "--help" : line, runner, defaults));
    output_ << std::flush;
  }
  return status;
}

ExitStatus Shell::RunLine(const std::string& line, CommandRunner& runner, const Command& defaults) {
  try {
    const CommandLine parsed = ParseShellCommand(SplitShellLine(line), defaults);
    if (parsed.information) {
      output_ << *parsed.information;
      return kSuccess;
    }
    return runner.Run(parsed.command);
  } catch (const CommandLineError& error) {
    errors_ << "wmihost: " << name_ << ":" << lineNumber_ << ": " << error.what() << '\n';
    return kBadInput;
  }
}

}  // namespace host
