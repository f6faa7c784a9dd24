#include <algorithm>
#include <cstring>
#include <mutex>
#include <new>
#include <type_traits>

#include "platform/native/observe.h"
#include "platform/native/registry_store.h"

namespace {

using native::Registry;
using native::RegistryNodeRef;
using native::RegistryValue;

std::u16string WideName(LPCSTR name) {
  if (name == nullptr || *name == '\0') return {};
  std::u16string wide(std::strlen(name), u'\0');
  MultiByteToWideChar(CP_ACP, 0, name, static_cast<int>(wide.size()), wide.data(),
                      static_cast<int>(wide.size()));
  return wide;
}

std::u16string_view View(LPCWSTR name) {
  return name == nullptr ? std::u16string_view() : name;
}

// Whether a key name in the path is longer than a key name may be.
bool HasOverlongName(std::u16string_view path) {
  constexpr std::size_t kLongestName = 255;
  std::size_t length = 0;
  for (const char16_t character : path) {
    length = character == u'\\' ? 0 : length + 1;
    if (length > kLongestName) return true;
  }
  return false;
}

// Holds the lock of the registry during a call.
class Call {
 public:
  explicit Call(HKEY handle) { result = registry.Find(handle, &key); }

  Registry& registry = Registry::Instance();
  const std::lock_guard<std::mutex> guard{registry.lock};
  RegistryNodeRef key;
  LSTATUS result;
};

LSTATUS OpenKey(HKEY handle, std::u16string_view path, HKEY* result) {
  if (result == nullptr) return ERROR_INVALID_PARAMETER;
  *result = nullptr;
  if (path.starts_with(u'\\')) return ERROR_BAD_PATHNAME;
  Call call(handle);
  if (call.result != ERROR_SUCCESS) return call.result;
  const RegistryNodeRef found = Registry::Descend(call.key, path, false);
  if (found == nullptr) return ERROR_FILE_NOT_FOUND;
  *result = call.registry.Open(found);
  return ERROR_SUCCESS;
}

// The data of a text in characters of type `Unit`. A terminator is added unless there is no data.
template <class Unit>
std::vector<BYTE> TextData(const RegistryValue& value) {
  if (value.data.size() < sizeof(OLECHAR)) return {};
  std::u16string text(value.data.size() / sizeof(OLECHAR), u'\0');
  std::memcpy(text.data(), value.data.data(), text.size() * sizeof(OLECHAR));
  if (text.back() != u'\0') text.push_back(u'\0');
  std::vector<BYTE> data(text.size() * sizeof(Unit));
  if constexpr (std::is_same_v<Unit, CHAR>) {
    const int size = static_cast<int>(text.size());
    WideCharToMultiByte(CP_ACP, 0, text.data(), size, reinterpret_cast<LPSTR>(data.data()), size,
                        nullptr, nullptr);
  } else {
    std::memcpy(data.data(), text.data(), data.size());
  }
  return data;
}

template <class Unit>
LSTATUS QueryValue(HKEY handle, std::u16string_view name, DWORD* reserved, DWORD* type, BYTE* data,
                   DWORD* size) {
  if (reserved != nullptr || (data != nullptr && size == nullptr)) return ERROR_INVALID_PARAMETER;
  Call call(handle);
  if (call.result != ERROR_SUCCESS) return call.result;
  const auto found = call.key->values.find(native::FoldedName(name));
  if (found == call.key->values.end()) return ERROR_FILE_NOT_FOUND;
  const RegistryValue& value = found->second;
  const std::vector<BYTE> bytes = value.type == REG_SZ ? TextData<Unit>(value) : value.data;
  const bool fits = data == nullptr || *size >= bytes.size();
  if (data != nullptr && fits) std::copy(bytes.begin(), bytes.end(), data);
  if (type != nullptr) *type = value.type;
  if (size != nullptr) *size = static_cast<DWORD>(bytes.size());
  if (!fits) return ERROR_MORE_DATA;
  return ERROR_SUCCESS;
}

}  // namespace

namespace native {

bool KeepRegistryIn(const std::string& path) {
  const std::lock_guard guard(Registry::Instance().lock);
  return Registry::Instance().KeepIn(path);
}

void ClearRegistry() {
  const std::lock_guard guard(Registry::Instance().lock);
  Registry::Instance().Reset(std::make_shared<RegistryNode>());
}

}  // namespace native

LSTATUS RegOpenKeyExA(HKEY key, LPCSTR subKey, DWORD, REGSAM, HKEY* result) try {
  return OpenKey(key, WideName(subKey), result);
} catch (const std::bad_alloc&) {
  return ERROR_OUTOFMEMORY;
}

LSTATUS RegOpenKeyExW(HKEY key, LPCWSTR subKey, DWORD, REGSAM, HKEY* result) try {
  return OpenKey(key, View(subKey), result);
} catch (const std::bad_alloc&) {
  return ERROR_OUTOFMEMORY;
}

LSTATUS RegQueryValueExA(HKEY key, LPCSTR name, DWORD* reserved, DWORD* type, BYTE* data,
                         DWORD* size) try {
  return QueryValue<CHAR>(key, WideName(name), reserved, type, data, size);
} catch (const std::bad_alloc&) {
  return ERROR_OUTOFMEMORY;
}

LSTATUS RegQueryValueExW(HKEY key, LPCWSTR name, DWORD* reserved, DWORD* type, BYTE* data,
                         DWORD* size) try {
  return QueryValue<WCHAR>(key, View(name), reserved, type, data, size);
} catch (const std::bad_alloc&) {
  return ERROR_OUTOFMEMORY;
}

LSTATUS RegCreateKeyExW(HKEY key, LPCWSTR subKey, DWORD, LPWSTR, DWORD, REGSAM, void*, HKEY* result,
                        DWORD* disposition) try {
  const std::u16string_view path = View(subKey);
  if (result == nullptr || !native::IsWellFormed(path)) return ERROR_INVALID_PARAMETER;
  *result = nullptr;
  if (path.starts_with(u'\\')) return ERROR_BAD_PATHNAME;
  if (HasOverlongName(path)) return ERROR_INVALID_PARAMETER;
  Call call(key);
  if (call.result != ERROR_SUCCESS) return call.result;
  const bool exists = Registry::Descend(call.key, path, false) != nullptr;
  const RegistryNodeRef made = Registry::Descend(call.key, path, true);
  if (!exists) {
    if (const LSTATUS saved = call.registry.Save(); saved != ERROR_SUCCESS) return saved;
  }
  *result = call.registry.Open(made);
  if (disposition != nullptr) {
    *disposition = exists ? REG_OPENED_EXISTING_KEY : REG_CREATED_NEW_KEY;
  }
  return ERROR_SUCCESS;
} catch (const std::bad_alloc&) {
  return ERROR_OUTOFMEMORY;
}

LSTATUS RegSetValueExW(HKEY key, LPCWSTR name, DWORD, DWORD type, const BYTE* data,
                       DWORD size) try {
  if (data == nullptr && size != 0) return ERROR_NOACCESS;
  if (!native::IsWellFormed(View(name))) return ERROR_INVALID_PARAMETER;
  Call call(key);
  if (call.result != ERROR_SUCCESS) return call.result;
  native::SetValue(call.key.get(), {std::u16string(View(name)), type, {data, data + size}});
  return call.registry.Save();
} catch (const std::bad_alloc&) {
  return ERROR_OUTOFMEMORY;
}

LSTATUS RegEnumKeyExW(HKEY key, DWORD index, LPWSTR name, DWORD* length, DWORD*, LPWSTR, DWORD*,
                      void*) try {
  if (name == nullptr || length == nullptr) return ERROR_INVALID_PARAMETER;
  Call call(key);
  if (call.result != ERROR_SUCCESS) return call.result;
  if (index >= call.key->keys.size()) return ERROR_NO_MORE_ITEMS;
  const std::u16string& found = std::next(call.key->keys.begin(), index)->second->name;
  const DWORD room = *length;
  *length = static_cast<DWORD>(found.size());
  if (room <= found.size()) return ERROR_MORE_DATA;
  name[found.copy(name, found.size())] = u'\0';
  return ERROR_SUCCESS;
} catch (const std::bad_alloc&) {
  return ERROR_OUTOFMEMORY;
}

LSTATUS RegDeleteKeyW(HKEY key, LPCWSTR subKey) try {
  if (subKey == nullptr) return ERROR_INVALID_PARAMETER;
  Call call(key);
  if (call.result != ERROR_SUCCESS) return call.result;
  const RegistryNodeRef found = Registry::Descend(call.key, subKey, false);
  if (found == nullptr) return ERROR_FILE_NOT_FOUND;
  if (!found->keys.empty()) return ERROR_ACCESS_DENIED;
  Registry::Delete(found.get());
  return call.registry.Save();
} catch (const std::bad_alloc&) {
  return ERROR_OUTOFMEMORY;
}

LSTATUS RegDeleteTreeW(HKEY key, LPCWSTR subKey) try {
  Call call(key);
  if (call.result != ERROR_SUCCESS) return call.result;
  const RegistryNodeRef found = Registry::Descend(call.key, View(subKey), false);
  if (found == nullptr) return ERROR_FILE_NOT_FOUND;
  // Without a name, only the contents of the key are deleted.
  if (found == call.key) {
    Registry::Clear(found.get());
  } else {
    Registry::Delete(found.get());
  }
  return call.registry.Save();
} catch (const std::bad_alloc&) {
  return ERROR_OUTOFMEMORY;
}

LSTATUS RegCloseKey(HKEY key) try {
  Registry& registry = Registry::Instance();
  const std::lock_guard guard(registry.lock);
  return registry.Close(key);
} catch (const std::bad_alloc&) {
  return ERROR_OUTOFMEMORY;
}

LSTATUS RegOverridePredefKey(HKEY key, HKEY replacement) try {
  if (replacement == nullptr) {
    Registry& registry = Registry::Instance();
    const std::lock_guard guard(registry.lock);
    return registry.Override(key, nullptr);
  }
  Call call(replacement);
  return call.result != ERROR_SUCCESS ? call.result : call.registry.Override(key, call.key);
} catch (const std::bad_alloc&) {
  return ERROR_OUTOFMEMORY;
}
