#pragma once

#include "provider/core/provider_state.h"

namespace wifi {

/// Fills an empty WiFi_NetworkAdapter instance with 24 values in order and keeps the raw values of
/// the writable ones in the state. Stops at the first put that fails; answers with the last put's
/// result. On NT major version 6 four properties are left out, in both passes.
/// Sources: the adapter's entry, and the getters of the rows in network_adapter.cpp.
HRESULT FillNetworkAdapter(ProviderState& state, IWbemClassObject* instance, AdapterEntry& entry);

}  // namespace wifi
