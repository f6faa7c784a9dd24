#include <objbase.h>
#include <shellapi.h>

#include <iostream>
#include <utility>

#include "host/os/os.h"
#include "platform/text.h"

namespace host::os {
namespace {

// The exception that OutputDebugStringA raises with the length and the address of its text.
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

/// The identity that the security settings of a proxy refer to, for the proxy's lifetime.
struct ServiceConnection::Identity {
  platform::OleString user;
  platform::OleString domain;
  platform::OleString password;
  COAUTHIDENTITY data = {};
};

ServiceConnection::ServiceConnection(const ServiceLogon& logon) {
  using platform::Bstr;
  // Fails if it has already been set; then that setting applies.
  CoInitializeSecurity(nullptr, -1, nullptr, nullptr, RPC_C_AUTHN_LEVEL_DEFAULT,
                       RPC_C_IMP_LEVEL_IMPERSONATE, nullptr, EOAC_NONE, nullptr);
  Bstr user;
  Bstr password;
  if (!logon.user.empty()) {
    identity_ = std::make_unique<Identity>();
    const std::size_t separator = logon.user.find('\\');
    const bool split = separator != std::string::npos;
    identity_->domain = platform::WideFromUtf8(split ? logon.user.substr(0, separator) : "");
    identity_->user = platform::WideFromUtf8(split ? logon.user.substr(separator + 1) : logon.user);
    identity_->password = platform::WideFromUtf8(logon.password);
    const auto place = [](platform::OleString& text) {
      return reinterpret_cast<USHORT*>(text.data());
    };
    identity_->data.User = place(identity_->user);
    identity_->data.UserLength = static_cast<ULONG>(identity_->user.size());
    identity_->data.Domain = place(identity_->domain);
    identity_->data.DomainLength = static_cast<ULONG>(identity_->domain.size());
    identity_->data.Password = place(identity_->password);
    identity_->data.PasswordLength = static_cast<ULONG>(identity_->password.size());
    identity_->data.Flags = SEC_WINNT_AUTH_IDENTITY_UNICODE;
    user = Bstr(platform::WideFromUtf8(logon.user));
    password = Bstr(identity_->password);
  }
  platform::ComPtr<IWbemLocator> locator;
  status_ = CoCreateInstance(CLSID_WbemLocator, nullptr, CLSCTX_INPROC_SERVER, IID_IWbemLocator,
                             locator.put_void());
  if (FAILED(status_)) return;
  const Bstr path(platform::WideFromUtf8(logon.namespacePath));
  status_ = locator->ConnectServer(path.get(), user.get(), password.get(), nullptr, 0, nullptr,
                                   nullptr, services_.put());
  if (SUCCEEDED(status_)) Secure(services_.get());
}
ServiceConnection::ServiceConnection(platform::ComPtr<IWbemServices> services)
    : services_(std::move(services)) {}
ServiceConnection::~ServiceConnection() = default;

bool ServiceConnection::Exists() {
  return true;
}

void ServiceConnection::Secure(IUnknown* proxy) const {
  // A service in this process uses no proxies; the call then fails.
  CoSetProxyBlanket(proxy, RPC_C_AUTHN_DEFAULT, RPC_C_AUTHZ_DEFAULT, COLE_DEFAULT_PRINCIPAL,
                    RPC_C_AUTHN_LEVEL_PKT_PRIVACY, RPC_C_IMP_LEVEL_IMPERSONATE,
                    identity_ ? &identity_->data : nullptr, EOAC_NONE);
}

}  // namespace host::os
