#pragma once

#include <functional>
#include <istream>
#include <optional>
#include <string>

#include "host/cli/command.h"
#include "host/cli/command_context.h"

namespace host {

/// Returns the next line without its line end, nullopt at the end.
using LineSource = std::function<std::optional<std::string>()>;

/// The lines of a stream, which must outlive it.
LineSource LinesOf(std::istream& input);

/// Runs the commands from a line source, one per line, until its end or `exit`. Blank lines and
/// lines that begin with # are skipped; a failing command does not end the shell.
class Shell {
 public:
  /// `name` precedes the line number in messages, which have neither if it is empty; with `echo`
  /// each command is printed before its output, as in a transcript.
  Shell(LineSource input, CommandContext& context, std::string name, bool echo);

  /// Returns the worst status, or the one given to `exit`.
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
