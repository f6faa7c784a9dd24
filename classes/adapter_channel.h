#pragma once

#include "provider/core/provider_state.h"

namespace wifi {

/// Fills an empty WiFi_AdapterChannel instance: the ad hoc channels of both bands, from
/// GetChannelInfo. All properties are put whatever the puts before them answered. Answers with the
/// last put's result, or with the library's own non-zero status when it refuses.
HRESULT FillAdapterChannel(ProviderState& state, IWbemClassObject* instance, AdapterEntry& entry);

}  // namespace wifi
