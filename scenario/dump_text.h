#pragma once
// A dump as a text: where its instances stand, whoever wrote it. Only the sources of this folder
// include it.

#include <map>
#include <string>
#include <string_view>
#include <vector>

#include "scenario/json.h"

namespace simulator {

/// The instances of each class, in their order; a property without a value is left out.
using Dump = std::map<std::string, std::vector<nlohmann::json>, std::less<>>;

/// Reads what a host's dump writes, a report that holds one, or what PowerShell's ConvertTo-Json
/// makes of instances: in UTF-8, or in UTF-16 as its redirections write it. Throws ScenarioError:
/// `source`, then what was expected.
Dump ParseDump(std::string_view text, const std::string& source);

}  // namespace simulator
