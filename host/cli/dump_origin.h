#pragma once

#include <optional>
#include <string>
#include <vector>

#include "host/cli/command_context.h"
#include "host/model/dump.h"

namespace host {

/// Where and when a dump was made: what a reproduction needs besides the instances.
class DumpOrigin {
 public:
  /// Records a class that was enumerated, and its failure.
  void Visit(const ClassInfo& info, const Outcome& outcome);
  /// Queries the library for its version. The time is the current time, or that of
  /// SOURCE_DATE_EPOCH.
  Json ToJson(CommandContext& context) const;

 private:
  std::optional<std::string> versioned_;  ///< path of an instance whose method returns the version
  std::vector<std::string> failures_;
};

}  // namespace host
