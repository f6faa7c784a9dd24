#pragma once

#include "provider/core/provider_state.h"

namespace wifi {

/// Fills an empty WiFi_AdapterAssociationInfo instance from GetAssociationInfo and keeps the value
/// of Associated in the entry. When the library refuses, the instance keeps only its key and the
/// result is success. Stops at the first put from Associated on that fails and answers with it.
HRESULT FillAssociationInfo(ProviderState& state, IWbemClassObject* instance, AdapterEntry& entry);

}  // namespace wifi
