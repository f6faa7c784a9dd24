#pragma once

#include <vector>

#include "platform/platform.h"
#include "provider/registration/script.h"

namespace wifi {

/// Writes the script's keys below `root`. A failure leaves none of them behind and is answered with
/// its code.
HRESULT ApplyRegistration(HKEY root, const std::vector<ScriptKey>& script);

/// Removes what the script wrote, by its rules. Keys that are not there are no failure; after one
/// the rest is removed all the same, and the first failure's code is the answer.
HRESULT RemoveRegistration(HKEY root, const std::vector<ScriptKey>& script);

}  // namespace wifi
