#pragma once
// The resources of the module that registration needs.

#include <string_view>

#include "platform/bstr.h"

namespace wifi {

/// The registration script, resource REGISTRY 102 of the module; empty if it is missing.
std::string_view RegistrationScriptText(HINSTANCE module);

/// Registers the type library, resource TYPELIB 1 of the module's file. Does nothing on a platform
/// without type libraries.
HRESULT RegisterTypeLibrary(const platform::OleString& modulePath);
/// Unregisters the type library. Succeeds if it is not registered.
HRESULT UnregisterTypeLibrary();

}  // namespace wifi
