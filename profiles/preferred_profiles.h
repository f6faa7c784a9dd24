#pragma once

#include "provider/core/instance.h"

namespace wifi {

// WiFi_PreferredProfile: the connection profiles that the profile library stores for the machine
// and its users. There are five stores, of which two are optional (see feature_set.h). Both
// functions return E_FAIL before Initialize; exceptions of the libraries pass through.

/// Indicates every profile of the open stores, impersonating the client. Returns the result of the
/// last profile; 0 if there are no profiles or the library cannot be opened.
HRESULT EnumeratePreferredProfiles(ProviderState& state, const Delivery& delivery);

/// Indicates the first profile with exactly the Name of the path, from the user, persistent and
/// prelogon stores; WBEM_E_NOT_FOUND if there is none.
HRESULT GetPreferredProfile(ProviderState& state, const Delivery& delivery, const ParsedPath& path);

}  // namespace wifi
