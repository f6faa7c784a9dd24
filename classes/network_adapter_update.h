#pragma once

#include "provider/core/provider_state.h"

namespace wifi {

/// Applies what a client changed in a WiFi_NetworkAdapter instance to the adapter that its DeviceID
/// names; for every other adapter answers 0 and does nothing. Nine properties in a fixed order
/// (seven on NT major version 6), each written only if it differs from the last known value, which
/// follows what the library accepted. A number out of range, and a value that holds no flag or
/// number, leave their property alone. WBEM_E_INVALID_OBJECT without a key; WBEM_E_PROVIDER_FAILURE
/// when a property is missing (earlier ones stay applied) and when DisableRfControl is refused;
/// other refusals are only traced.
HRESULT UpdateNetworkAdapter(ProviderState& state, IWbemClassObject* instance, AdapterEntry& entry);

}  // namespace wifi
