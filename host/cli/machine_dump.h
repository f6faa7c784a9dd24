#pragma once

#include "host/cli/command_context.h"
#include "host/service/value.h"

namespace host {

/// All instances of all classes as the provider shows them and, after them, where they come from;
/// `status` becomes that of the worst enumeration.
Json ReportedDump(CommandContext& context, ExitStatus* status);

}  // namespace host
