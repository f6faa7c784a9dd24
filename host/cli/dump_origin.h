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

/// The requests of a dump.
struct DumpRequests {
  std::function<ClassAnswer(const ClassInfo&)> enumerate;
  std::function<Json(const std::string& path)> get;  ///< the instance of a path, or null
  std::function<Json()> describe;                    ///< tells where the instances come from
};

/// Asks for all classes, by name where an enumeration ended early, and says on standard error how
/// enumerations ended that did not end well. `status` becomes that of the worst enumeration; an
/// empty list is nothing wrong.
Json MakeDump(CommandContext& context, const DumpRequests& requests, ExitStatus* status);

/// The dump of the provider of `context`.
Json ProviderDump(CommandContext& context, ExitStatus* status);

/// At which adapter the enumeration of a class ended early and which were not asked, as words of a
/// sentence; empty if no adapter is the cause, or none is after it.
std::string WhyEnumerationEnded(CommandContext& context, const ClassInfo& info,
                                const Outcome& outcome);

/// The program's version and the time, which is the present or that of SOURCE_DATE_EPOCH.
Json DumpStart();

}  // namespace host
