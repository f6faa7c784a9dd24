#pragma once

#include "methods/method_call.h"

namespace wifi {

// The methods of one adapter and its configuration; each answers TRUE when the library's operation
// answers 0, unless said otherwise. A missing in-parameter makes no call.

/// In: Register, boolean.
MethodResult RegisterProfileService(const MethodCall& call);
MethodResult ResetStatistics(const MethodCall& call);
/// In: Enable, boolean.
MethodResult EnableXpZeroConfig(const MethodCall& call);
/// Whether the library supports the adapter's device.
MethodResult IsAdapterSupported(const MethodCall& call);
MethodResult StopAuthentication(const MethodCall& call);
MethodResult IsTcpIpInstalledAndBound(const MethodCall& call);
MethodResult Release1xConfig(const MethodCall& call);

/// The library's version as a number, whatever its operation answers.
MethodResult GetApiVersion(const MethodCall& call);
/// In: ProfileName. Whether it is the last applied profile's name, ignoring letter case.
MethodResult IsCurrentProfile(const MethodCall& call);
MethodResult Disassociate(const MethodCall& call);

/// The flag that the adapter's entry keeps; never TRUE.
MethodResult IsAssociated(const MethodCall& call);

}  // namespace wifi
