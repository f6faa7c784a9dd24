#pragma once

#include "host/cli/command.h"
#include "host/cli/command_context.h"

namespace host {

/// Runs one command with everything it needs; what it finds wrong is said.
ExitStatus RunCommand(const Command& command, CommandContext& context);

}  // namespace host
