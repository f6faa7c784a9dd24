#pragma once

#include "platform/native/system.h"

namespace native {

/// GetUserProfileDirectoryA of the built-in userenv.dll. Gives the value of HOME.
BOOL UserProfileDirectory(HANDLE token, LPSTR directory, DWORD* size);

}  // namespace native
