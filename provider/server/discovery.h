#pragma once

#include <string>
#include <string_view>

#include "provider/core/provider_state.h"

namespace wifi {

/// Learns the interactive user and which adapters are served: those that GetAdapterList reports as
/// present and that the platform knows as a PCI device of the maker, matched by MAC address.
/// Fills the user fields anew, and the adapters, which the caller has emptied. Answers 0, the
/// library's own non-zero code if it refuses to list its adapters, the failing code of the service,
/// or WBEM_E_FAILED for a table that cannot be read to its end: what could be is served. May throw
/// what the library or the service throws.
HRESULT DiscoverAdapters(ProviderState& state);

/// The form in which a user or domain name is kept: no name in clear in memory dumps, and no
/// protection beyond that. Two upper-case hexadecimal digits a byte.
std::string EncodeIdentity(std::string_view name);

}  // namespace wifi
