#pragma once

namespace wifi {

/// Diagnostic: traces the profile directory of the user whom this thread acts for, that is, whose
/// profiles the library would find. No request calls it. Always 0.
int TraceUserProfileDirectory();

}  // namespace wifi
