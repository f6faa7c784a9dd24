#pragma once
// Finds the instances in the text of a dump, whatever program wrote it. Only the sources of this
// folder include it.

#include <map>
#include <string>
#include <string_view>
#include <vector>

#include "scenario/json.h"

namespace simulator {

/// The instances of each class, in their order; properties without a value are missing.
using Dump = std::map<std::string, std::vector<nlohmann::json>, std::less<>>;

/// Reads a dump as a host writes it, a report that contains one, or instances that PowerShell's
/// ConvertTo-Json wrote: in UTF-8, or in UTF-16 as its redirections write it. Throws ScenarioError:
/// `source`, then what was expected.
Dump ParseDump(std::string_view text, const std::string& source);

}  // namespace simulator
