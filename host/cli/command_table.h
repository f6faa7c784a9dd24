#pragma once
// The commands and options of the program, each one row. The parser, the help, the man page, the
// completion and the documents follow the rows: who adds a command adds a row here and a function.

#include <vector>

#include "host/cli/command.h"
#include "host/cli/command_context.h"
#include "host/cli/exit_status.h"

namespace host {

/// What may stand in a place; completion offers accordingly.
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
  kFolder,
  kVersion,
  kWidth,  ///< a number of columns
};

struct ArgumentRow {
  /// kWords is one text that may come as several words, without quotes around it.
  enum class Count { kOne, kOptional, kAny, kWords };

  const char* name;
  const char* help;
  Takes takes;
  Count count = Count::kOne;
  std::vector<const char*> choices = {};
};

struct OptionRow {
  const char* name;  ///< with its dashes
  /// What stands for its value in help; null for a flag; in [] if it may miss, which a flag's,
  /// after a =, always may.
  const char* value;
  const char* help;
  Takes takes = Takes::kNothing;
  std::vector<const char*> choices = {};
};

/// What has to be there before a command runs.
enum class Needs {
  kNothing,
  kScenario,  ///< a scenario that is named is checked
  kProvider,  ///< a provider that has started
};

/// Where a command may stand: standard input or the registration is some commands' own.
enum class Place { kEverywhere, kCommandLine, kShell };

struct CommandRow {
  const char* name;
  const char* help;  ///< one phrase in the imperative
  std::vector<ArgumentRow> arguments = {};
  std::vector<OptionRow> options = {};
  Needs needs = Needs::kNothing;
  Place place = Place::kEverywhere;
  /// The formats that it takes; empty for a command that shows no rows, which ignores them.
  std::vector<OutputFormat> formats = {};
  bool takesFields = false;
  /// Beside success, kUnexpected, kBadInput and kNotWritten, which every command has.
  std::vector<ExitStatus> statuses = {};
  ExitStatus (*run)(const Command& command, CommandContext& context);
};

const std::vector<CommandRow>& Commands();
/// Options of the whole process.
const std::vector<OptionRow>& HostOptions();
/// Options that stand on every command line, in a shell too.
const std::vector<OptionRow>& OutputOptions();

/// Whether a command line needs this argument.
inline bool MustStand(const ArgumentRow& row) {
  return row.count == ArgumentRow::Count::kOne || row.count == ArgumentRow::Count::kWords;
}
inline bool TakesSeveral(const ArgumentRow& row) {
  return row.count == ArgumentRow::Count::kAny || row.count == ArgumentRow::Count::kWords;
}

/// Whether a command may stand on this kind of line.
bool MayStand(const CommandRow& row, bool inShell);
/// The names of the commands that may stand there.
std::vector<std::string> CommandNames(bool inShell);
/// The row of a command, in any case of letters; null if there is none.
const CommandRow* FindCommand(const std::string& name);

}  // namespace host
