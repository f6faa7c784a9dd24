#pragma once

#include "provider/core/instance.h"

namespace wifi {

// WiFi_SystemPolicies: two machine-wide settings of the wireless service, in one instance with a
// fixed key. A setting that the library cannot read is not put.

HRESULT EnumerateSystemPolicies(ProviderState& state, const Delivery& delivery);

/// Indicates the instance. The key of the path is ignored.
HRESULT GetSystemPolicies(ProviderState& state, const Delivery& delivery, const ParsedPath& path);

/// Writes AutoConnect if it is 0, 1 or 2, and then SingleBSSMode. The settings do not belong to an
/// adapter, but they are written for each adapter that the update is called for. If SingleBSSMode
/// cannot be read from the instance, returns that error; WBEM_E_PROVIDER_FAILURE if the library
/// refuses SingleBSSMode.
HRESULT UpdateSystemPolicies(ProviderState& state, IWbemClassObject* instance, AdapterEntry& entry);

}  // namespace wifi
