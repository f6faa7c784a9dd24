#pragma once

#include <functional>
#include <istream>
#include <optional>
#include <ostream>
#include <string>

#include "host/cli/command_runner.h"

namespace host {

/// Gives the next line without its end, none at the end.
using LineSource = std::function<std::optional<std::string>()>;

/// The lines of a stream, which must outlive it.
LineSource LinesOf(std::istream& input);

/// Runs the commands of a source of lines, one a line, until its end or `exit`. Blank lines and
/// lines that begin with # are skipped; a failing command does not end the shell. Gives the worst
/// status.
class Shell {
 public:
  /// `name` stands before the line number in messages; with `echo` each command stands before what
  /// it shows, as in a transcript.
  Shell(LineSource input, std::ostream& output, std::ostream& errors, std::string name, bool echo);

  ExitStatus Run(CommandRunner& runner, const Command& defaults);

 private:
  ExitStatus RunLine(const std::string& line, CommandRunner& runner, const Command& defaults);

  LineSource input_;
  std::ostream& output_;
  std::ostream& errors_;
  std::string name_;
  bool echo_;
  int lineNumber_ = 0;
};

}  // namespace host
