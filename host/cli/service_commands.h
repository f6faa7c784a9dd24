#pragma once

#include "host/cli/command.h"
#include "host/cli/command_context.h"

namespace host {

/// Does what a command line with --service asks: of the machine's own management service, or
/// another's, instead of a provider that is loaded here. Throws CommandLineError for a command that
/// it has no answer to.
ExitStatus RunOnService(const Command& command, CommandContext& context);

}  // namespace host
