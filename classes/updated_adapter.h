#pragma once

#include "provider/core/adapter_map.h"

namespace wifi {

/// Whether the instance that a client puts is this adapter's: an update is offered every adapter
/// and must touch only the one that the instance's key names. S_OK for this adapter, S_FALSE for
/// another one, WBEM_E_INVALID_OBJECT for an instance whose key is missing or holds no text.
HRESULT IsUpdateOf(IWbemClassObject* instance, const OLECHAR* keyName, const AdapterEntry& entry);

}  // namespace wifi
