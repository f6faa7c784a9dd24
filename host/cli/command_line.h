#pragma once

#include <optional>
#include <string>
#include <vector>

#include "host/cli/command.h"

namespace host {

struct CommandLine {
  Command command;
  std::optional<std::string> information;  ///< help or version; then there is no command
};

/// Reads a command line without the program's name. Throws CommandLineError.
CommandLine ParseCommandLine(std::vector<std::string> arguments);

/// Parses one line of the shell: commands and their own options only. `defaults` has the options
/// that the line does not give. Throws CommandLineError.
CommandLine ParseShellCommand(std::vector<std::string> arguments, const Command& defaults);

}  // namespace host
