#pragma once

#include <string>
#include <string_view>

#include "scenario/from_iw.h"

namespace simulator {

/// Makes a scenario from what the classes of a machine showed: the output of `dump --format json`,
/// a page of `report`, or instances that PowerShell's ConvertTo-Json wrote. A simulator that plays
/// the scenario shows the same. `source` names the text in remarks and errors. Throws
/// ScenarioError.
ScenarioOfCapture ScenarioFromDump(std::string_view text, const std::string& source);

}  // namespace simulator
