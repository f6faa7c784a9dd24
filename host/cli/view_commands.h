#pragma once

#include <functional>

#include "host/cli/command.h"
#include "host/cli/command_context.h"
#include "host/service/value.h"

namespace host {

/// Makes a dump of the machine, which sets the status of the worst enumeration.
using DumpSource = std::function<Json(CommandContext& context, ExitStatus* status)>;

/// The dump of a source, without messages about failures.
Json QuietDump(CommandContext& context, const DumpSource& source, ExitStatus* status);

/// What status, adapters and networks show of a machine.
ExitStatus ShowMachine(const Command& command, CommandContext& context, const DumpSource& source);

}  // namespace host
