#pragma once
// The four classes that describe an adapter's hardware and driver, each from one record. When the
// library refuses, the instance keeps only its key and the fill answers with the library's own
// non-zero status.

#include "provider/core/provider_state.h"

namespace wifi {

/// WiFi_AdapterDevice, from GetDeviceInfo. Stops at the first property put that fails.
HRESULT FillAdapterDevice(ProviderState& state, IWbemClassObject* instance, AdapterEntry& entry);

/// WiFi_AdapterConfigSettings, from GetAdapterConfiguration. SocketNumber is put even after a put
/// that failed, and its result alone is the answer.
HRESULT FillConfigSettings(ProviderState& state, IWbemClassObject* instance, AdapterEntry& entry);

/// WiFi_AdapterVersion, from GetVersionInfo. Stops at the first property put that fails.
HRESULT FillAdapterVersion(ProviderState& state, IWbemClassObject* instance, AdapterEntry& entry);

/// WiFi_AdapterFeatures, from GetAdapterFeatures. Puts all flags and answers with the last result.
HRESULT FillAdapterFeatures(ProviderState& state, IWbemClassObject* instance, AdapterEntry& entry);

}  // namespace wifi
