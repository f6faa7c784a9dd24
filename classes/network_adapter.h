#pragma once

#include "provider/core/provider_state.h"

namespace wifi {

/// Fills an empty WiFi_NetworkAdapter instance from the entry and the getters in
/// network_adapter.cpp, with 24 puts in a fixed order. Stores the raw values of the writable
/// properties in the state. Stops at the first put that fails. Returns the result of the last put.
/// On NT major version 6 four properties are left out, including the second put of one.
HRESULT FillNetworkAdapter(ProviderState& state, IWbemClassObject* instance, AdapterEntry& entry);

}  // namespace wifi
