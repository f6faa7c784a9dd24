#pragma once
// The JSON of a scenario, read from its text in one pass. Only the sources of this folder include
// it.

#include <functional>
#include <string_view>

#include "scenario/node.h"

namespace simulator {

/// Parses a scenario, in which comments may stand. Each element of the member `adapters` goes to
/// `adapter` once its text has been read, and is not kept: the value that is given back has an
/// empty array there. Throws ScenarioError for what is no JSON, a member that is there twice and
/// endless nesting, and lets through what `adapter` throws.
nlohmann::json ParseScenarioText(std::string_view text,
                                 const std::function<void(const Node&)>& adapter);

}  // namespace simulator
