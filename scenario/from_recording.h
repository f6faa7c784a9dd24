#pragma once

#include <string>
#include <string_view>

#include "scenario/from_iw.h"

namespace simulator {

/// Makes a scenario of what `wmihost record` wrote: the machine of the first sample, and a timeline
/// that makes it show the other samples at their times. `source` names the recording in remarks and
/// errors. Throws ScenarioError.
ScenarioOfCapture ScenarioFromRecording(std::string_view text, const std::string& source);

}  // namespace simulator
