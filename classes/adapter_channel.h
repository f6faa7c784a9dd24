#pragma once

#include "provider/core/provider_state.h"

namespace wifi {

/// Fills an empty WiFi_AdapterChannel instance: the ad hoc channels of both bands, from
/// GetChannelInfo. All properties are put whatever the puts before them answered. Answers with the
/// last put's result, or with the library's own non-zero status when it refuses.
HRESULT FillAdapterChannel(ProviderState& state, IWbemClassObject* instance, AdapterEntry& entry);

/// Writes the two chosen ad hoc channels of a client's WiFi_AdapterChannel instance to the adapter
/// that its SettingID names; for every other adapter answers 0 and does nothing. Everything else in
/// the library's record stays as it was read; the library alone judges the channel numbers.
/// WBEM_E_INVALID_OBJECT without a key; WBEM_E_PROVIDER_FAILURE without a ChannelB that is a number
/// and when the library refuses; otherwise the library's status.
HRESULT UpdateAdapterChannel(ProviderState& state, IWbemClassObject* instance, AdapterEntry& entry);

}  // namespace wifi
