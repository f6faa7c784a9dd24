#pragma once
// The classes with exactly one instance for each adapter: which class a selector names, and
// their shared enumeration and get by key.

#include <cstdint>

#include "provider/core/instance.h"

namespace wifi {

enum class ClassSelector : std::uint32_t {
  kNetworkAdapter = 0,
  kAssociationInfo = 1,
  kVersion = 2,
  kDevice = 3,
  kConfigSettings = 4,
  kSignalParameters = 5,
  kChannel = 6,
  kFeatures = 7,
  kTcpIpSettings = 8,
  kTcpIpv6Settings = 9,
  kEnd,  ///< no class
};

/// Makes and fills the instance of one class for one adapter. E_FAIL without an entry,
/// WBEM_E_INVALID_CLASS for kEnd and beyond; otherwise the service's or filler's result.
HRESULT MakeAdapterInstance(ProviderState& state, IWbemContext* context, ClassSelector selector,
                            AdapterEntry* entry, platform::ComPtr<IWbemClassObject>& instance);

/// Indicates the class's instance of every adapter, until one fails.
HRESULT EnumerateAdapterClass(ProviderState& state, const Delivery& delivery,
                              ClassSelector selector);

/// Indicates the instance of the adapter that the path's key names; WBEM_E_NOT_FOUND without one.
HRESULT GetAdapterClassObject(ProviderState& state, const Delivery& delivery,
                              const ParsedPath& path, ClassSelector selector);

}  // namespace wifi
