#pragma once

#include "provider/core/provider_state.h"

namespace wifi {

/// Fills an empty WiFi_AdapterChannel instance with the ad hoc channels of both bands, from
/// GetChannelInfo. Puts all properties, even after a failed put. Returns the result of the last
/// put, or the non-zero status of the library.
HRESULT FillAdapterChannel(ProviderState& state, IWbemClassObject* instance, AdapterEntry& entry);

/// Writes the two chosen ad hoc channels of a client's WiFi_AdapterChannel instance to the adapter
/// that its SettingID names. For any other adapter it does nothing and returns 0. The rest of the
/// library's record is written back unchanged; only the library checks the channel numbers.
/// WBEM_E_INVALID_OBJECT if the key is missing; WBEM_E_PROVIDER_FAILURE if ChannelB is not a number
/// or the library refuses; otherwise the status of the library.
HRESULT UpdateAdapterChannel(ProviderState& state, IWbemClassObject* instance, AdapterEntry& entry);

}  // namespace wifi
