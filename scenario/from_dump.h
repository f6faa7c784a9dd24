#pragma once

#include <string>
#include <string_view>

#include "scenario/from_iw.h"

namespace simulator {

/// Makes a scenario of what the classes of a machine showed: a text of `dump --format json`, a page
/// of `report`, or instances that PowerShell's ConvertTo-Json wrote. A simulator that plays it
/// shows the same again. `source` names the text in remarks and errors. Throws ScenarioError.
ScenarioOfCapture ScenarioFromDump(std::string_view text, const std::string& source);

}  // namespace simulator
