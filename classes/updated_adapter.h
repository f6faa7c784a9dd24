#pragma once

#include "provider/core/adapter_map.h"

namespace wifi {

/// Whether the instance that a client puts names this adapter. An update is called for every
/// adapter, but must change only the one that the key of the instance names. S_OK for this adapter,
/// S_FALSE for another one, WBEM_E_INVALID_OBJECT if the key is missing or not a text.
HRESULT IsUpdateOf(IWbemClassObject* instance, const OLECHAR* keyName, const AdapterEntry& entry);

}  // namespace wifi
