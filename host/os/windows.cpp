#include <objbase.h>
#include <shellapi.h>

#include <iostream>

#include "host/os/os.h"
#include "platform/text.h"

namespace host::os {
namespace {

// What OutputDebugStringA raises: the length and the address of its text.
constexpr DWORD kDebugPrint = 0x40010006;

LONG CALLBACK PrintDebugOutput(EXCEPTION_POINTERS* pointers) {
  const EXCEPTION_RECORD& record = *pointers->ExceptionRecord;
  if (record.ExceptionCode != kDebugPrint || record.NumberParameters < 2) {
    return EXCEPTION_CONTINUE_SEARCH;
  }
  const auto* text = reinterpret_cast<const char*>(record.ExceptionInformation[1]);
  std::cerr << platform::Utf8Text(platform::WideText(text)) + "\n" << std::flush;
  return EXCEPTION_CONTINUE_EXECUTION;
}

void* debugOutputHandler = nullptr;

}  // namespace

std::vector<std::string> Arguments(int, char**) {
  int count = 0;
  wchar_t** wide = CommandLineToArgvW(GetCommandLineW(), &count);
  std::vector<std::string> arguments;
  for (int index = 1; index < count; ++index) arguments.push_back(platform::Utf8Text(wide[index]));
  LocalFree(wide);
  return arguments;
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

FARPROC FunctionByOrdinal(HMODULE module, WORD ordinal, const char*) {
  return GetProcAddress(module, MAKEINTRESOURCEA(ordinal));
}

std::string LibraryFile(const std::string& name) {
  return name + ".dll";
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
