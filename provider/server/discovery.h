#pragma once

#include <string>
#include <string_view>

#include "provider/core/provider_state.h"

namespace wifi {

/// Finds the interactive user and the adapters to serve: those that GetAdapterList reports as
/// present and that the platform lists as a PCI device of the maker, matched by MAC address.
/// Replaces the user fields, and adds to `state.adapters`, which the caller has emptied. Returns 0,
/// the non-zero status of the library if it refuses to list its adapters, the error of the service,
/// or WBEM_E_FAILED if the table cannot be read to its end; the adapters read before that are
/// served. May throw an exception of the library or the service.
HRESULT DiscoverAdapters(ProviderState& state);

/// Obfuscates a user or domain name so that a memory dump does not show it in plain text. This is
/// no protection. Gives two upper-case hexadecimal digits for each byte.
std::string EncodeIdentity(std::string_view name);

}  // namespace wifi
