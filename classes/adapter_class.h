#pragma once
// The classes with exactly one instance for each adapter, which share their enumeration and their
// get by key. A selector names the class.

#include <cstdint>

#include "provider/core/instance.h"

namespace wifi {

enum class ClassSelector : std::uint32_t {
  kNetworkAdapter,
  kAssociationInfo,
  kVersion,
  kDevice,
  kConfigSettings,
  kSignalParameters,
  kChannel,
  kFeatures,
  kTcpIpSettings,
  kTcpIpv6Settings,
  kEnd,  ///< the number of classes
};

/// Makes and fills the instance of one class for one adapter. E_FAIL if `entry` is null,
/// WBEM_E_INVALID_CLASS for kEnd and above; otherwise the result of the service or the filler.
HRESULT MakeAdapterInstance(ProviderState& state, IWbemContext* context, ClassSelector selector,
                            AdapterEntry* entry, platform::ComPtr<IWbemClassObject>& instance);

/// Indicates the instance of the class for every adapter, until one fails.
HRESULT EnumerateAdapterClass(ProviderState& state, const Delivery& delivery,
                              ClassSelector selector);

/// Indicates the instance for the adapter that the key of the path names; WBEM_E_NOT_FOUND if there
/// is no such adapter.
HRESULT GetAdapterClassObject(ProviderState& state, const Delivery& delivery,
                              const ParsedPath& path, ClassSelector selector);

}  // namespace wifi
