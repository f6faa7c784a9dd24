#pragma once

namespace wifi {

/// Diagnostic: traces the profile directory of the user that this thread impersonates, whose
/// profiles the library would find. No request calls it. Always returns 0.
int TraceUserProfileDirectory();

}  // namespace wifi
