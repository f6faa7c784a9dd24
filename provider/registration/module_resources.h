#pragma once
// What registration takes from the module itself.

#include <string_view>

#include "platform/bstr.h"

namespace wifi {

/// The registration script: resource REGISTRY 102 of the module; empty if it is not there.
std::string_view RegistrationScriptText(HINSTANCE module);

/// Registers the type library, resource TYPELIB 1 of the module's file. Where the platform knows no
/// type libraries there is nothing to do.
HRESULT RegisterTypeLibrary(const platform::OleString& modulePath);
/// Forgets it again; one that is not registered is no failure.
HRESULT UnregisterTypeLibrary();

}  // namespace wifi
