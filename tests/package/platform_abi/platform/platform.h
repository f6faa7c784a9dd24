#pragma once
// The platform's two integers that the profile library's declarations use, for a compiler that has
// none of the platform's headers.

using LONG = long;
using ULONG = unsigned long;
