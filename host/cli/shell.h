#pragma once

#include <istream>
#include <ostream>
#include <string>

#include "host/cli/command_runner.h"

namespace host {

/// Runs the commands of a stream, one a line, until its end or `exit`. Blank lines and lines that
/// begin with # are skipped; a failing command does not end the shell. Gives the worst status.
class Shell {
 public:
  /// `name` stands before the line number in messages; with `prompt` a person is typing.
  Shell(std::istream& input, std::ostream& output, std::ostream& errors, std::string name,
        bool prompt);

  ExitStatus Run(CommandRunner& runner, const Command& defaults);

 private:
  ExitStatus RunLine(const std::string& line, CommandRunner& runner, const Command& defaults);

  std::istream& input_;
  std::ostream& output_;
  std::ostream& errors_;
  std::string name_;
  bool prompt_;
  int lineNumber_ = 0;
};

}  // namespace host
