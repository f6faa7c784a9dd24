#pragma once

#include "methods/method_call.h"

namespace wifi {

// The methods of an adapter's exclude list: the networks it must not join. Each answers TRUE when
// the library's operation answers 0, unless said otherwise.

/// TRUE whatever the library answers.
MethodResult ResetExcludeList(const MethodCall& call);
/// In: NetworkName, of which 32 bytes count; Reason, 0 to 4. FALSE without a call for an empty
/// name.
MethodResult AddExcludeListEntry(const MethodCall& call);
MethodResult RemoveExcludeListEntry(const MethodCall& call);

/// Out: Enabled, 0 if the library fails.
MethodResult IsExcludeListEnabled(const MethodCall& call);
/// In: Enabled, boolean.
MethodResult EnableExcludeList(const MethodCall& call);
/// Out: Count, the lowest 8 bits; none if the library fails.
MethodResult GetRogueApCount(const MethodCall& call);
/// Excludes the access point that the library names as the candidate.
MethodResult ExcludeThisAp(const MethodCall& call);

}  // namespace wifi
