#include "classes/updated_adapter.h"

#include "platform/text.h"
#include "provider/core/instance.h"

namespace wifi {

HRESULT IsUpdateOf(IWbemClassObject* instance, const OLECHAR* keyName, const AdapterEntry& entry) {
  platform::Variant key;
  const HRESULT result = GetPropertyValue(*instance, keyName, key);
  if (FAILED(result) || key.text() == nullptr) return WBEM_E_INVALID_OBJECT;
  // Compares as the adapter map does: ANSI texts, case-sensitively.
  return platform::AnsiText(key.text()) == platform::AnsiText(entry.deviceId.c_str()) ? S_OK
                                                                                      : S_FALSE;
}

}  // namespace wifi
