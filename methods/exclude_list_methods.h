#pragma once

#include "methods/method_call.h"

namespace wifi {

// The methods of an adapter's exclude list: the networks that it must not join. Unless stated
// otherwise, each returns TRUE if the operation of the library returns 0.

/// Always returns TRUE.
MethodResult ResetExcludeList(const MethodCall& call);
/// In: NetworkName, truncated to 32 bytes; Reason, 0 to 4. For an empty name it returns FALSE
/// without calling the library.
MethodResult AddExcludeListEntry(const MethodCall& call);
MethodResult RemoveExcludeListEntry(const MethodCall& call);

/// Out: Enabled, 0 if the library fails.
MethodResult IsExcludeListEnabled(const MethodCall& call);
/// In: Enabled, boolean.
MethodResult EnableExcludeList(const MethodCall& call);
/// Out: Count, the lowest 8 bits; not put if the library fails.
MethodResult GetRogueApCount(const MethodCall& call);
/// Excludes the access point that GetExcludeCandidate returns.
MethodResult ExcludeThisAp(const MethodCall& call);

}  // namespace wifi
