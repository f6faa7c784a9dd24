#pragma once
// Dumps: the instances of all classes, and where they come from.

#include <functional>

#include "host/cli/command_context.h"
#include "host/model/dump.h"

namespace host {

/// What the enumeration of a class gave.
struct ClassAnswer {
  HRESULT status = S_OK;
  Json rows = Json::array();
};

/// Asks for all classes, and says on standard error how enumerations ended that did not end well.
/// `describe` then tells where the instances come from. `status` becomes that of the worst
/// enumeration; an empty list is nothing wrong.
Json MakeDump(CommandContext& context,
              const std::function<ClassAnswer(const ClassInfo&)>& enumerate,
              const std::function<Json()>& describe, ExitStatus* status);

/// The dump of the provider of `context`.
Json ProviderDump(CommandContext& context, ExitStatus* status);

/// The program's version and the time, which is the present or that of SOURCE_DATE_EPOCH.
Json DumpStart();

}  // namespace host
