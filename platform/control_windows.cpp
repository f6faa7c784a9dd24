#include <cstddef>
#include <cstring>

#include "platform/control.h"

namespace platform {
namespace {

DWORD answeredMajor = 0;
DWORD answeredMinor = 0;

BOOL WINAPI AnswerVersion(OSVERSIONINFOA* info) {
  info->dwMajorVersion = answeredMajor;
  info->dwMinorVersion = answeredMinor;
  info->dwBuildNumber = 0;
  info->dwPlatformId = VER_PLATFORM_WIN32_NT;
  info->szCSDVersion[0] = '\0';
  return TRUE;
}

/// The module's slot for an imported function, null if it imports none of that name.
ULONGLONG* ImportSlot(HMODULE module, const char* function) {
  if (module == nullptr) module = GetModuleHandleW(nullptr);
  auto* base = reinterpret_cast<std::byte*>(module);
  const auto* dos = reinterpret_cast<const IMAGE_DOS_HEADER*>(base);
  const auto* headers = reinterpret_cast<const IMAGE_NT_HEADERS64*>(base + dos->e_lfanew);
  const IMAGE_DATA_DIRECTORY& directory =
      headers->OptionalHeader.DataDirectory[IMAGE_DIRECTORY_ENTRY_IMPORT];
  if (directory.VirtualAddress == 0) return nullptr;
  const auto* import =
      reinterpret_cast<const IMAGE_IMPORT_DESCRIPTOR*>(base + directory.VirtualAddress);
  for (; import->Name != 0; ++import) {
    if (import->OriginalFirstThunk == 0) continue;
    const auto* name =
        reinterpret_cast<const IMAGE_THUNK_DATA64*>(base + import->OriginalFirstThunk);
    auto* slot = reinterpret_cast<IMAGE_THUNK_DATA64*>(base + import->FirstThunk);
    for (; name->u1.AddressOfData != 0; ++name, ++slot) {
      if (IMAGE_SNAP_BY_ORDINAL64(name->u1.Ordinal)) continue;
      const auto* byName =
          reinterpret_cast<const IMAGE_IMPORT_BY_NAME*>(base + name->u1.AddressOfData);
      if (std::strcmp(reinterpret_cast<const char*>(byName->Name), function) == 0) {
        return &slot->u1.Function;
      }
    }
  }
  return nullptr;
}

constexpr const wchar_t* kScratchFolder = L"Software\\wmihost";

std::wstring ScratchKey() {
  return std::wstring(kScratchFolder) + L"\\" + std::to_wstring(GetCurrentProcessId());
}

}  // namespace

void SetOsVersion(HMODULE module, DWORD major, DWORD minor) {
  answeredMajor = major;
  answeredMinor = minor;
  ULONGLONG* slot = ImportSlot(module, "GetVersionExA");
  DWORD protection = 0;
  if (slot == nullptr || !VirtualProtect(slot, sizeof(*slot), PAGE_READWRITE, &protection)) return;
  *slot = reinterpret_cast<ULONGLONG>(&AnswerVersion);
  VirtualProtect(slot, sizeof(*slot), protection, &protection);
}

bool KeepRegistryIn(const std::string&) {
  return false;
}

PrivateLocalMachine::PrivateLocalMachine() {
  HKEY key = nullptr;
  RegCreateKeyExW(HKEY_CURRENT_USER, ScratchKey().c_str(), 0, nullptr, REG_OPTION_NON_VOLATILE,
                  KEY_ALL_ACCESS, nullptr, &key, nullptr);
  RegOverridePredefKey(HKEY_LOCAL_MACHINE, key);
  RegCloseKey(key);
}

PrivateLocalMachine::~PrivateLocalMachine() {
  RegOverridePredefKey(HKEY_LOCAL_MACHINE, nullptr);
  RegDeleteTreeW(HKEY_CURRENT_USER, ScratchKey().c_str());
  RegDeleteKeyW(HKEY_CURRENT_USER, kScratchFolder);  // stays while another host uses it
}

}  // namespace platform
