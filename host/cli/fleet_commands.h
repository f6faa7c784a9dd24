#pragma once

#include "host/cli/view_commands.h"

namespace host {

/// Writes the machine as metrics.
ExitStatus WriteMetrics(const Command& command, CommandContext& context, const DumpSource& source);

/// Prints the line of a check, and returns its status.
ExitStatus CheckMachine(const Command& command, CommandContext& context, const DumpSource& source);
/// The same for a check that could not be made, with the first line of its errors.
ExitStatus FailCheck(std::ostream& output, const std::string& errors);

}  // namespace host
