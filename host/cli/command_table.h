#pragma once
// The commands and options of the program, one row each. The parser, the help, the manual page, the
// completion and the documents are derived from the rows: a new command needs a row here and a
// function.

#include <vector>

#include "host/cli/command.h"
#include "host/cli/command_context.h"
#include "host/cli/exit_status.h"

namespace host {

/// The kind of value that is expected in a place; completion offers values of this kind.
enum class Takes {
  kNothing,  ///< a flag
  kText,
  kClass,
  kPath,  ///< an object path
  kMethod,
  kCommand,
  kAssignment,  ///< Name=value of a property or parameter
  kQuery,
  kProperties,
  kChoice,  ///< one of the row's choices, in any case of letters
  kFile,
  kMember,  ///< MEMBER=value of the simulated machine
  kFolder,
  kVersion,
  kWidth,  ///< a number of columns
  kSeconds,
  kMegabytes,
  kDuration,  ///< such as 1m30s
  kSpeed,     ///< 0, or how many times as fast as the clock
};

struct ArgumentRow {
  /// kWords is one text that may be typed as several words, without quotes around it.
  enum class Count { kOne, kOptional, kAny, kWords };

  const char* name;
  const char* help;
  Takes takes;
  Count count = Count::kOne;
  std::vector<const char*> choices = {};
};

struct OptionRow {
  const char* name;  ///< with its dashes
  /// Placeholder for the value in help; null for a flag. `[X]` marks it optional. A flag's
  /// `--flag=X` value is always optional.
  const char* value;
  const char* help;
  Takes takes = Takes::kNothing;
  std::vector<const char*> choices = {};
};

/// What must exist before a command runs.
enum class Needs {
  kNothing,
  kScenario,  ///< a named scenario has been checked
  kProvider,  ///< a provider that has started
};

/// Where a command is available: some commands use standard input or the registration themselves.
enum class Place { kEverywhere, kCommandLine, kShell };

struct CommandRow {
  const char* name;
  const char* help;  ///< one phrase in the imperative
  std::vector<ArgumentRow> arguments = {};
  std::vector<OptionRow> options = {};
  Needs needs = Needs::kNothing;
  Place place = Place::kEverywhere;
  /// The formats that it supports; empty for a command that shows no rows, which ignores the
  /// format.
  std::vector<OutputFormat> formats = {};
  bool takesFields = false;
  /// Its exit status is that of a monitoring system's check, also if it cannot be run.
  bool isCheck = false;
  /// Whole lines, with the program's name if they are typed on a command line.
  std::vector<const char*> examples = {};
  /// In addition to success, kUnexpected, kBadInput and kNotWritten, which apply to every command.
  std::vector<ExitStatus> statuses = {};
  ExitStatus (*run)(const Command& command, CommandContext& context);
};

const std::vector<CommandRow>& Commands();
/// Options of the whole process.
const std::vector<OptionRow>& HostOptions();
/// Options of every command line, also in a shell.
const std::vector<OptionRow>& OutputOptions();

/// Whether a command needs this argument.
inline bool IsRequired(const ArgumentRow& row) {
  return row.count == ArgumentRow::Count::kOne || row.count == ArgumentRow::Count::kWords;
}
inline bool TakesSeveral(const ArgumentRow& row) {
  return row.count == ArgumentRow::Count::kAny || row.count == ArgumentRow::Count::kWords;
}

/// Whether a command is available on this kind of line.
bool IsAvailable(const CommandRow& row, bool inShell);
/// The names of the commands that are available there.
std::vector<std::string> CommandNames(bool inShell);
/// The row of a command, in any letter case; null if there is no such command.
const CommandRow* FindCommand(const std::string& name);

}  // namespace host
