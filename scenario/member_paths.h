#pragma once

#include <string>
#include <string_view>
#include <vector>

namespace simulator {

struct Scenario;

/// The completions of `typed`, the beginning of the path of a member that can be changed at run
/// time. Each ends with a / if more must follow, else with a =. After a = they are the member's
/// values, if these have names.
std::vector<std::string> MemberPaths(std::string_view typed, const Scenario& scenario);

}  // namespace simulator
