#pragma once
// The platform's two integer types that the profile library's declarations use, for a compiler
// without the platform's headers.

using LONG = long;
using ULONG = unsigned long;
