#pragma once

#include "adapterapi/adapter_api.h"
#include "platform/platform.h"

namespace wifi {

/// The CLSID of the only creatable class. Its objects are InstanceProviders.
extern const CLSID kInstanceProviderClass;

/// Creates the class factory for kInstanceProviderClass. The objects that it creates use `api`.
/// CLASS_E_CLASSNOTAVAILABLE for any other class.
HRESULT GetClassFactory(adapterapi::AdapterApi& api, REFCLSID classId, REFIID iid, void** object);

}  // namespace wifi
