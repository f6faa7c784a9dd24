#pragma once

#include "methods/method_call.h"

namespace wifi {

// The methods of an adapter and its configuration. Unless stated otherwise, each returns TRUE if
// the operation of the library returns 0. If an in-parameter is missing, the library is not called.

/// In: Register, boolean.
MethodResult RegisterProfileService(const MethodCall& call);
MethodResult ResetStatistics(const MethodCall& call);
/// In: Enable, boolean.
MethodResult EnableXpZeroConfig(const MethodCall& call);
/// Returns whether the library supports the device of the adapter.
MethodResult IsAdapterSupported(const MethodCall& call);
MethodResult StopAuthentication(const MethodCall& call);
MethodResult IsTcpIpInstalledAndBound(const MethodCall& call);
MethodResult Release1xConfig(const MethodCall& call);

/// Returns the version of the library as a number, whatever the status of the operation.
MethodResult GetApiVersion(const MethodCall& call);
/// In: ProfileName. Returns whether it is the name of the last applied profile, ignoring letter
/// case.
MethodResult IsCurrentProfile(const MethodCall& call);
MethodResult Disassociate(const MethodCall& call);

/// Returns AdapterEntry::associationFlag, which is never TRUE.
MethodResult IsAssociated(const MethodCall& call);

}  // namespace wifi
