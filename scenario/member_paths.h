#pragma once

#include <string>
#include <string_view>
#include <vector>

namespace simulator {

struct Scenario;

/// What may stand where a person types the path of a member that can be changed while the machine
/// plays: `typed` as far as it goes, each with a / behind it if more is to come, else with a =.
/// Behind a = the member's values, where they have names.
std::vector<std::string> MemberPaths(std::string_view typed, const Scenario& scenario);

}  // namespace simulator
