#pragma once
// The table of commands as text for users.

#include <string>

#include "host/cli/command_table.h"

namespace host {

/// A command's examples, without the program's name in a shell.
std::vector<std::string> ExamplesOf(const CommandRow& row, bool inShell);
/// The program's version, MAJOR.MINOR.PATCH.
extern const char* const kProgramVersion;

/// "wmihost put PATH [NAME=VALUE ...]"; the shell's commands without the program's name.
std::string Usage(const CommandRow& row, bool inShell);
/// An option with the placeholder for its value.
std::string OptionText(const OptionRow& row);
/// All commands and options.
std::string Help(bool inShell);
/// One command with its arguments, options and exit statuses.
std::string CommandHelp(const CommandRow& row, bool inShell);
/// The error that there is no such command, with the one that may have been meant.
CommandLineError NoCommand(const std::string& name, bool inShell);
/// The exit statuses with which a command may end.
std::vector<ExitStatus> StatusesOf(const CommandRow& row);

}  // namespace host
