#pragma once

#include "host/cli/command.h"
#include "host/cli/command_context.h"

namespace host {

/// Runs one command with everything that it needs, and reports its errors.
ExitStatus RunCommand(const Command& command, CommandContext& context);

}  // namespace host
