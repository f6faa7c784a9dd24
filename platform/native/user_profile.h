#pragma once

#include "platform/native/system.h"

namespace native {

/// GetUserProfileDirectoryA of the built-in userenv.dll: the home directory of the environment.
BOOL UserProfileDirectory(HANDLE token, LPSTR directory, DWORD* size);

}  // namespace native
