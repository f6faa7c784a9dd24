#pragma once

#include "provider/core/provider_state.h"

namespace wifi {

/// Fills an empty WiFi_AdapterSignalParameters instance from GetSignalParameters. Stops at the
/// first put after the key that fails and returns its result. WBEM_E_NOT_FOUND if the library
/// refuses.
HRESULT FillSignalParameters(ProviderState& state, IWbemClassObject* instance, AdapterEntry& entry);

}  // namespace wifi
