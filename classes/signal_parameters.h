#pragma once

#include "provider/core/provider_state.h"

namespace wifi {

/// Fills an empty WiFi_AdapterSignalParameters instance from GetSignalParameters. Stops at the
/// first put from SignalQuality on that fails and answers with it; WBEM_E_NOT_FOUND when the
/// library refuses.
HRESULT FillSignalParameters(ProviderState& state, IWbemClassObject* instance, AdapterEntry& entry);

}  // namespace wifi
