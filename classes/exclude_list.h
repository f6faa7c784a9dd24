#pragma once
// WiFi_NetworkExcludeList: an instance for each entry of GetExcludeList. A fill stops at the first
// put that fails. WBEM_E_NOT_FOUND if the list is empty, the library refuses, or no entry has the
// keys of the path.

#include "provider/core/instance.h"

namespace wifi {

HRESULT EnumerateExcludeList(ProviderState& state, const Delivery& delivery);
HRESULT GetExcludeListObject(ProviderState& state, const Delivery& delivery,
                             const ParsedPath& path);

}  // namespace wifi
