#include <fcntl.h>
#include <io.h>
#include <objbase.h>
#include <shellapi.h>

#include <cstddef>
#include <cstdio>
#include <cstring>

#include "host/os/os.h"
#include "platform/text.h"

namespace host::os {
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

// What OutputDebugStringA raises: the length and the address of its text.
constexpr DWORD kDebugPrint = 0x40010006;

LONG CALLBACK PrintDebugOutput(EXCEPTION_POINTERS* pointers) {
  const EXCEPTION_RECORD& record = *pointers->ExceptionRecord;
  if (record.ExceptionCode != kDebugPrint || record.NumberParameters < 2) {
    return EXCEPTION_CONTINUE_SEARCH;
  }
  const auto* text = reinterpret_cast<const char*>(record.ExceptionInformation[1]);
  std::fprintf(stderr, "%s\n", text);
  std::fflush(stderr);
  return EXCEPTION_CONTINUE_EXECUTION;
}

void* debugOutputHandler = nullptr;

constexpr const wchar_t* kScratchFolder = L"Software\\wmihost";

std::wstring ScratchKey() {
  return std::wstring(kScratchFolder) + L"\\" + std::to_wstring(GetCurrentProcessId());
}

}  // namespace

std::vector<std::string> Arguments(int, char**) {
  int count = 0;
  wchar_t** wide = CommandLineToArgvW(GetCommandLineW(), &count);
  std::vector<std::string> arguments;
  for (int index = 1; index < count; ++index) arguments.push_back(platform::Utf8Text(wide[index]));
  LocalFree(wide);
  return arguments;
}

void PrepareStreams() {
  for (const int stream : {0, 1, 2}) _setmode(stream, _O_BINARY);
  SetConsoleOutputCP(CP_UTF8);
  SetConsoleCP(CP_UTF8);
}

bool IsTerminal(int standardStream) {
  return _isatty(standardStream) != 0;
}

std::optional<int> TerminalWidth() {
  CONSOLE_SCREEN_BUFFER_INFO info{};
  if (!GetConsoleScreenBufferInfo(GetStdHandle(STD_OUTPUT_HANDLE), &info)) return std::nullopt;
  return info.srWindow.Right - info.srWindow.Left + 1;
}

std::string DefaultModulePath() {
  std::wstring program(32768, L'\0');
  program.resize(GetModuleFileNameW(nullptr, program.data(), static_cast<DWORD>(program.size())));
  const std::size_t folder = program.find_last_of(L"\\/");
  return platform::Utf8Text(program.substr(0, folder + 1) + L"WiFiAdapterProvider.dll");
}

HMODULE LoadModule(const std::string& path) {
  const std::wstring wide = platform::WideFromUtf8(path);
  wchar_t full[32768];
  if (GetFullPathNameW(wide.c_str(), static_cast<DWORD>(std::size(full)), full, nullptr) == 0) {
    return nullptr;
  }
  return LoadLibraryExW(full, nullptr,
                        LOAD_LIBRARY_SEARCH_DLL_LOAD_DIR | LOAD_LIBRARY_SEARCH_DEFAULT_DIRS);
}

std::string LibraryFile(const std::string& name) {
  return name + ".dll";
}

bool KeepRegistryIn(const std::string&) {
  return false;
}
bool HasComRegistration() {
  return true;
}
HRESULT RegisteredClassFactory(REFCLSID classId, IClassFactory** factory) {
  return CoGetClassObject(classId, CLSCTX_INPROC_SERVER, nullptr, IID_IClassFactory,
                          reinterpret_cast<void**>(factory));
}
HMODULE LoadedModule(const std::string& path) {
  return GetModuleHandleW(platform::WideFromUtf8(path).c_str());
}
void UnloadUnusedModules() {
  CoFreeUnusedLibrariesEx(0, 0);
}

std::string FileName(const std::string& path) {
  return platform::AnsiText(platform::WideFromUtf8(path).c_str());
}

void SetEnvironment(const char* name, const std::string& value) {
  SetEnvironmentVariableA(name, value.c_str());
}

void SetOsVersion(HMODULE module, DWORD major, DWORD minor) {
  answeredMajor = major;
  answeredMinor = minor;
  ULONGLONG* slot = ImportSlot(module, "GetVersionExA");
  DWORD protection = 0;
  if (slot == nullptr || !VirtualProtect(slot, sizeof(*slot), PAGE_READWRITE, &protection)) return;
  *slot = reinterpret_cast<ULONGLONG>(&AnswerVersion);
  VirtualProtect(slot, sizeof(*slot), protection, &protection);
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

DebugOutputToStderr::DebugOutputToStderr() {
  debugOutputHandler = AddVectoredExceptionHandler(1, &PrintDebugOutput);
}
DebugOutputToStderr::~DebugOutputToStderr() {
  RemoveVectoredExceptionHandler(debugOutputHandler);
}

Apartment::Apartment() {
  CoInitializeEx(nullptr, COINIT_APARTMENTTHREADED);
}
Apartment::~Apartment() {
  CoUninitialize();
}

}  // namespace host::os
