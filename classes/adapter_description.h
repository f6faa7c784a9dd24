#pragma once
// The four classes that describe the hardware and driver of an adapter, each from one record. If
// the library refuses, the instance has only its key, and the result is the non-zero status of the
// library.

#include "provider/core/provider_state.h"

namespace wifi {

/// WiFi_AdapterDevice, from GetDeviceInfo. Stops at the first property put that fails.
HRESULT FillAdapterDevice(ProviderState& state, IWbemClassObject* instance, AdapterEntry& entry);

/// WiFi_AdapterConfigSettings, from GetAdapterConfiguration. SocketNumber is put even after a
/// failed put, and only its result is returned.
HRESULT FillConfigSettings(ProviderState& state, IWbemClassObject* instance, AdapterEntry& entry);

/// WiFi_AdapterVersion, from GetVersionInfo. Stops at the first property put that fails.
HRESULT FillAdapterVersion(ProviderState& state, IWbemClassObject* instance, AdapterEntry& entry);

/// WiFi_AdapterFeatures, from GetAdapterFeatures. Puts all flags and returns the result of the last
/// put.
HRESULT FillAdapterFeatures(ProviderState& state, IWbemClassObject* instance, AdapterEntry& entry);

}  // namespace wifi
