#pragma once
// The table of commands for a person to read.

#include <string>

#include "host/cli/command_table.h"

namespace host {

/// The program's version, MAJOR.MINOR.PATCH.
extern const char* const kProgramVersion;

/// "wmihost put PATH [NAME=VALUE ...]"; the shell's commands stand without the program's name.
std::string Usage(const CommandRow& row, bool inShell);
/// An option with what stands for its value.
std::string OptionText(const OptionRow& row);
/// All commands and options.
std::string Help(bool inShell);
/// One command with its arguments, options and exit statuses.
std::string CommandHelp(const CommandRow& row, bool inShell);
/// Says that there is no such command, and which may have been meant.
CommandLineError NoCommand(const std::string& name, bool inShell);
/// The exit statuses that a command may end with.
std::vector<ExitStatus> StatusesOf(const CommandRow& row);

}  // namespace host
