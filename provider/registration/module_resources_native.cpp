#include "platform/embedded_text.h"
#include "provider/registration/module_resources.h"

EMBEDDED_TEXT(registration_script)

namespace wifi {

std::string_view RegistrationScriptText(HINSTANCE) {
  return embedded::registration_script();
}

HRESULT RegisterTypeLibrary(const platform::OleString&) {
  return S_OK;
}
HRESULT UnregisterTypeLibrary() {
  return S_OK;
}

}  // namespace wifi
