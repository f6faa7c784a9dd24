#pragma once
// The import address table of a loaded module. Only tests and the host use it.

#include <cstddef>
#include <cstring>

#include "platform/platform.h"

namespace platform {

/// The import descriptors of a module, which may be loaded or only mapped. The last row has no
/// name. Their offsets are relative to the start of the module.
inline const IMAGE_IMPORT_DESCRIPTOR* ImportsOf(HMODULE module) {
  static constexpr IMAGE_IMPORT_DESCRIPTOR kNone = {};
  const auto* base = reinterpret_cast<const std::byte*>(module);
  const auto* dos = reinterpret_cast<const IMAGE_DOS_HEADER*>(base);
  const auto* headers = reinterpret_cast<const IMAGE_NT_HEADERS64*>(base + dos->e_lfanew);
  const DWORD place =
      headers->OptionalHeader.DataDirectory[IMAGE_DIRECTORY_ENTRY_IMPORT].VirtualAddress;
  return place == 0 ? &kNone : reinterpret_cast<const IMAGE_IMPORT_DESCRIPTOR*>(base + place);
}

/// The slot of an imported function in the module's import address table; null if the module does
/// not import it. `function` is a name or, as MAKEINTRESOURCEA(n), an ordinal. A null `library`
/// matches every library; a null `module` means this program.
inline ULONGLONG* ImportSlot(HMODULE module, const char* library, const char* function) {
  if (module == nullptr) module = GetModuleHandleW(nullptr);
  auto* base = reinterpret_cast<std::byte*>(module);
  for (const auto* import = ImportsOf(module); import->Name != 0; ++import) {
    if (import->OriginalFirstThunk == 0) continue;
    if (library != nullptr &&
        lstrcmpiA(reinterpret_cast<const char*>(base + import->Name), library) != 0) {
      continue;
    }
    const auto* name =
        reinterpret_cast<const IMAGE_THUNK_DATA64*>(base + import->OriginalFirstThunk);
    auto* slot = reinterpret_cast<IMAGE_THUNK_DATA64*>(base + import->FirstThunk);
    for (; name->u1.AddressOfData != 0; ++name, ++slot) {
      if (IMAGE_SNAP_BY_ORDINAL64(name->u1.Ordinal)) {
        if (MAKEINTRESOURCEA(IMAGE_ORDINAL64(name->u1.Ordinal)) == function) {
          return &slot->u1.Function;
        }
      } else if (!IS_INTRESOURCE(function)) {
        const auto* byName =
            reinterpret_cast<const IMAGE_IMPORT_BY_NAME*>(base + name->u1.AddressOfData);
        if (std::strcmp(reinterpret_cast<const char*>(byName->Name), function) == 0) {
          return &slot->u1.Function;
        }
      }
    }
  }
  return nullptr;
}

/// Makes the module call `replacement` instead. Returns false if it does not import the function.
template <class Function>
bool ReplaceImport(HMODULE module, const char* library, const char* function,
                   Function* replacement) {
  ULONGLONG* slot = ImportSlot(module, library, function);
  DWORD protection = 0;
  if (slot == nullptr || !VirtualProtect(slot, sizeof(*slot), PAGE_READWRITE, &protection)) {
    return false;
  }
  *slot = reinterpret_cast<ULONGLONG>(replacement);
  return VirtualProtect(slot, sizeof(*slot), protection, &protection) != FALSE;
}

}  // namespace platform
