#pragma once

#include "methods/method_call.h"

namespace wifi {

// The methods of a preferred profile, which the path names by Name. The profile library gives the
// profile's record, the adapter control library applies it; TRUE when it does. FALSE before
// Initialize.

/// In: AdapterID, the adapter's key text.
MethodResult ApplyProfile(const MethodCall& call);
/// The same, with the record asking for re-entry.
MethodResult ReenterAndReapplyProfile(const MethodCall& call);
/// In: MacAddress, which only the adapter control library interprets; no adapter has to be served.
MethodResult ApplyProfileFromMacAddress(const MethodCall& call);

}  // namespace wifi
