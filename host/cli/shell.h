#pragma once

#include <functional>
#include <istream>
#include <optional>
#include <string>

#include "host/cli/command.h"
#include "host/cli/command_context.h"

namespace host {

/// Gives the next line without its end, none at the end.
using LineSource = std::function<std::optional<std::string>()>;

/// The lines of a stream, which must outlive it.
LineSource LinesOf(std::istream& input);

/// Runs the commands of a source of lines, one a line, until its end or `exit`. Blank lines and
/// lines that begin with # are skipped; a failing command does not end the shell.
class Shell {
 public:
  /// `name` stands before the line number in messages, which have neither without it; with `echo`
  /// each command stands before what it shows, as in a transcript.
  Shell(LineSource input, CommandContext& context, std::string name, bool echo);

  /// Gives the worst status, or the one that `exit` names.
  ExitStatus Run(const Command& defaults);

 private:
  ExitStatus RunLine(const std::string& line, const Command& defaults);

  LineSource input_;
  CommandContext& context_;
  std::string name_;
  bool echo_;
  int lineNumber_ = 0;
};

}  // namespace host
