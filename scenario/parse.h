#pragma once
// Reads the JSON of a scenario from its text in one pass. Only the sources of this folder include
// it.

#include <functional>
#include <string_view>

#include "scenario/node.h"

namespace simulator {

/// Parses a scenario, which may contain comments. Passes each element of the member `adapters` to
/// `adapter` as soon as its text has been read and does not keep it: in the returned value that
/// array is empty. Throws ScenarioError for text that is no JSON, for a duplicate member and for
/// too deep nesting; exceptions from `adapter` pass through.
nlohmann::json ParseScenarioText(std::string_view text,
                                 const std::function<void(const Node&)>& adapter);

}  // namespace simulator
