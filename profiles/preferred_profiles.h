#pragma once

#include "provider/core/instance.h"

namespace wifi {

// WiFi_PreferredProfile: the connection profiles that the profile library keeps for the machine and
// its users, in five stores of which two have gates (see feature_set.h). Both answer E_FAIL before
// Initialize; what the libraries raise passes through.

/// Indicates every profile of the open stores, asking as the client. Answers with the status of the
/// last profile's last step, 0 without any, also when the library does not open.
HRESULT EnumeratePreferredProfiles(ProviderState& state, const Delivery& delivery);

/// The first profile with exactly the Name of the path in the user, persistent and prelogon stores;
/// WBEM_E_NOT_FOUND otherwise.
HRESULT GetPreferredProfile(ProviderState& state, const Delivery& delivery, const ParsedPath& path);

}  // namespace wifi
