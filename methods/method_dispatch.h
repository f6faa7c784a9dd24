#pragma once

#include "provider/core/instance.h"

namespace wifi {

/// Runs a method on the object that `path` names and indicates its out-parameters. ReturnValue
/// tells whether the method succeeded; the status is the result of Indicate. Class names are
/// compared ignoring letter case, method names exactly. For an unknown method nothing runs, and the
/// status depends on the class; WBEM_E_INVALID_CLASS for a class without methods.
HRESULT ExecuteMethod(ProviderState& state, const Delivery& delivery, const ParsedPath& path,
                      const OLECHAR* methodName, IWbemClassObject* inParameters);

}  // namespace wifi
