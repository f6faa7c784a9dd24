#include "host/cli/shell.h"

#include <string>
#include <utility>

namespace host {

Shell::Shell(std::istream& input, std::ostream& output, std::ostream& errors, std::string name,
             bool prompt)
    : input_(input), output_(output), errors_(errors), name_(std::move(name)), prompt_(prompt) {}

ExitStatus Shell::Run(CommandRunner& runner, const Command& defaults) {
  ExitStatus status = kSuccess;
  std::string line;
  while (true) {
    if (prompt_) output_ << "wmihost> " << std::flush;
    if (!std::getline(input_, line)) return status;
    ++lineNumber_;
    if (line.ends_with('\r')) line.pop_back();
    const std::size_t start = line.find_first_not_of(" \t");
    if (start == std::string::npos || line[start] == '#') continue;
    const std::string word = line.substr(start, line.find_last_not_of(" \t") + 1 - start);
    if (word == "exit" || word == "quit") return status;
    status = Worse(status, RunLine(word == "help" ? "--help" : line, runner, defaults));
    output_ << std::flush;
  }
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
