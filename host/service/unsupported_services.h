#pragma once

#include "host/service/com_object.h"
#include "platform/unserved_services.h"

namespace host {

/// IWbemServices that refuses every operation with WBEM_E_NOT_SUPPORTED and no result.
using UnsupportedServices = platform::UnservedServices<ComObject<IWbemServices, IID_IWbemServices>,
                                                       WBEM_E_NOT_SUPPORTED, true>;

}  // namespace host
