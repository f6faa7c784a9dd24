#pragma once

#include "adapterapi/adapter_api.h"
#include "platform/platform.h"

namespace wifi {

/// CLSID of the one creatable class, whose objects are InstanceProviders.
extern const CLSID kInstanceProviderClass;

/// Gives the class factory of that class, whose objects use `api`; CLASS_E_CLASSNOTAVAILABLE for
/// another class.
HRESULT GetClassFactory(adapterapi::AdapterApi& api, REFCLSID classId, REFIID iid, void** object);

}  // namespace wifi
