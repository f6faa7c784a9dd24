#pragma once

#include "provider/core/instance.h"

namespace wifi {

// WiFi_SystemPolicies: two machine-wide settings of the wireless service, in one instance with a
// fixed key. A setting that the library cannot read is left out of the instance.

HRESULT EnumerateSystemPolicies(ProviderState& state, const Delivery& delivery);

/// Any key value, or none, gives the one instance.
HRESULT GetSystemPolicies(ProviderState& state, const Delivery& delivery, const ParsedPath& path);

/// Writes AutoConnect if it is 0, 1 or 2, and SingleBSSMode in any case; neither belongs to an
/// adapter, so this is done for each one that the update is offered. The code of the Get that
/// failed without SingleBSSMode; WBEM_E_PROVIDER_FAILURE when the library refuses it.
HRESULT UpdateSystemPolicies(ProviderState& state, IWbemClassObject* instance, AdapterEntry& entry);

}  // namespace wifi
