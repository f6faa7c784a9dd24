#include "platform/control/control.h"
#include "platform/control/import_slot_windows.h"

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

constexpr const wchar_t* kScratchFolder = L"Software\\wmihost";

std::wstring ScratchKey() {
  return std::wstring(kScratchFolder) + L"\\" + std::to_wstring(GetCurrentProcessId());
}

}  // namespace

void SetOsVersion(HMODULE module, DWORD major, DWORD minor) {
  answeredMajor = major;
  answeredMinor = minor;
  ReplaceImport(module, nullptr, "GetVersionExA", &AnswerVersion);
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
  RegDeleteKeyW(HKEY_CURRENT_USER, kScratchFolder);  // fails while another host has a key in it
}

Apartment::Apartment(Kind kind) {
  CoInitializeEx(nullptr,
                 kind == Kind::kMultithreaded ? COINIT_MULTITHREADED : COINIT_APARTMENTTHREADED);
}
Apartment::~Apartment() {
  CoUninitialize();
}

}  // namespace platform
