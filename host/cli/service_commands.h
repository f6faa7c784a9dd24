#pragma once

#include "host/cli/command.h"
#include "host/cli/command_context.h"
#include "host/cli/service_client.h"

namespace host {

/// How long to wait for the service: --timeout, else the default.
std::chrono::seconds ServiceLimit(const Command& command);

/// Executes a command line with --service: on the machine's own management service, or on another
/// machine's, instead of a provider loaded here. Throws CommandLineError for a command that does
/// not support this.
ExitStatus RunOnService(const Command& command, CommandContext& context);
/// The same on the service of a client.
ExitStatus RunOnService(const Command& command, CommandContext& context,
                        const ServiceClient& service);

}  // namespace host
