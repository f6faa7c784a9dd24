#pragma once

#include "methods/method_call.h"

namespace wifi {

// The methods of a preferred profile, which the path names by Name. The profile library supplies
// the record of the profile, and the adapter control library applies it. They return TRUE if it
// succeeds, FALSE before Initialize.

/// In: AdapterID, the key of the adapter (AdapterEntry::key).
MethodResult ApplyProfile(const MethodCall& call);
/// The same, with the re-enter request set in the record.
MethodResult ReenterAndReapplyProfile(const MethodCall& call);
/// In: MacAddress, which only the adapter control library interprets. The provider need not serve
/// the adapter.
MethodResult ApplyProfileFromMacAddress(const MethodCall& call);

}  // namespace wifi
