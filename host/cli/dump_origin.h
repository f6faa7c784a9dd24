#pragma once

#include <optional>
#include <string>
#include <vector>

#include "host/cli/command_context.h"
#include "host/model/dump.h"

namespace host {

/// Where and when a dump was made: what a reproduction needs to know beside the instances.
class DumpOrigin {
 public:
  /// Takes note of a class that was enumerated, and of its failure.
  void Visit(const ClassInfo& info, const Outcome& outcome);
  /// Asks the library for its version. The time is the present, or that of SOURCE_DATE_EPOCH.
  Json ToJson(CommandContext& context) const;

 private:
  std::optional<std::string> versioned_;  ///< path of an instance whose method tells the version
  std::vector<std::string> failures_;
};

}  // namespace host
