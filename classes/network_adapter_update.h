#pragma once

#include "provider/core/provider_state.h"

namespace wifi {

/// Applies a client's WiFi_NetworkAdapter instance to the adapter that its DeviceID names. For any
/// other adapter it does nothing and returns 0. Nine properties are handled in a fixed order (seven
/// on NT major version 6). Each is written only if it differs from the last known value, which is
/// set to each value that the library accepts. A number out of range, or a value that is not a flag
/// or number, is ignored. WBEM_E_INVALID_OBJECT if the key is missing; WBEM_E_PROVIDER_FAILURE if a
/// property is missing (those before it stay applied) or the library refuses DisableRfControl;
/// other refusals are only traced.
HRESULT UpdateNetworkAdapter(ProviderState& state, IWbemClassObject* instance, AdapterEntry& entry);

}  // namespace wifi
