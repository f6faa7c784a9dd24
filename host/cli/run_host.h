#pragma once

#include <ostream>
#include <string>
#include <vector>

#include "host/cli/command.h"
#include "host/cli/exit_status.h"

namespace host {

/// Does what a command line asks: loads the provider if it is needed, runs the command, releases
/// everything and unloads the provider.
ExitStatus RunHost(const Command& command, std::ostream& output, std::ostream& errors);

/// The whole program for these arguments. What was shown counts only if it was written.
ExitStatus RunProgram(const std::vector<std::string>& arguments, std::ostream& output,
                      std::ostream& errors);

}  // namespace host
