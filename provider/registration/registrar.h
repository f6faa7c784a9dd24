#pragma once

#include <vector>

#include "platform/platform.h"
#include "provider/registration/script.h"

namespace wifi {

/// Writes the keys of the script below `root`. After a failure it removes all of them and returns
/// the error.
HRESULT ApplyRegistration(HKEY root, const std::vector<ScriptKey>& script);

/// Removes the keys of the script by their rules. Missing keys are ignored. After a failure it
/// removes the other keys, and then returns the first error.
HRESULT RemoveRegistration(HKEY root, const std::vector<ScriptKey>& script);

}  // namespace wifi
