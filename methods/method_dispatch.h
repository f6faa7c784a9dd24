#pragma once

#include "provider/core/instance.h"

namespace wifi {

/// Runs the method of the object that `path` names and indicates its out-parameters, of which
/// ReturnValue is the outcome: whatever a method or a library does, the status is then Indicate's.
/// Class names ignore letter case, method names do not. Without such a method nothing runs and the
/// status is the class's own; WBEM_E_INVALID_CLASS for a class without methods.
HRESULT ExecuteMethod(ProviderState& state, const Delivery& delivery, const ParsedPath& path,
                      const OLECHAR* methodName, IWbemClassObject* inParameters);

}  // namespace wifi
