#include <dlfcn.h>
#include <sys/ioctl.h>
#include <unistd.h>

#include <csignal>
#include <cstdlib>
#include <filesystem>
#include <string_view>
#include <utility>

#include "host/os/os.h"

namespace host::os {
namespace {

/// Without a folder the loader would search for the file in its own folders.
std::string FullPath(const std::string& path) {
  std::error_code error;
  const std::filesystem::path full = std::filesystem::absolute(path, error);
  return error ? path : full.string();
}

}  // namespace

std::vector<std::string> Arguments(int argc, char** argv) {
  return argc > 1 ? std::vector<std::string>(argv + 1, argv + argc) : std::vector<std::string>();
}

struct StandardStreams::State {};
StandardStreams::StandardStreams() {
  std::signal(SIGPIPE, SIG_IGN);  // a closed pipe is a write error
}
StandardStreams::~StandardStreams() = default;

bool IsTerminal(int standardStream) {
  return isatty(standardStream) == 1;
}

bool ShowsEscapes(int standardStream) {
  const char* terminal = std::getenv("TERM");
  return IsTerminal(standardStream) && terminal != nullptr && std::string_view(terminal) != "dumb";
}

std::optional<int> TerminalWidth() {
  winsize size{};
  if (ioctl(STDOUT_FILENO, TIOCGWINSZ, &size) != 0 || size.ws_col == 0) return std::nullopt;
  return size.ws_col;
}

std::string DefaultModulePath() {
  std::error_code error;
  const auto program = std::filesystem::read_symlink("/proc/self/exe", error);
  return (program.parent_path() / "libWiFiAdapterProvider.so").string();
}

HMODULE LoadModule(const std::string& path) {
  return LoadLibraryA(FullPath(path).c_str());
}

std::string LoadProblem(const std::string& path) {
  // The loader's message says which file or symbol is missing; it may begin with the path.
  const char* words = dlerror();
  const std::string problem = words == nullptr ? "unknown reason" : words;
  const std::string full = FullPath(path) + ": ";
  return problem.starts_with(full) ? problem.substr(full.size()) : problem;
}

FARPROC FunctionByOrdinal(HMODULE module, WORD, const char* symbol) {
  return GetProcAddress(module, symbol);
}

std::string LibraryFile(const std::string& name) {
  return "lib" + name + ".so";
}

bool HasComRegistration() {
  return false;
}
HRESULT RegisteredClassFactory(REFCLSID, IClassFactory**) {
  return E_NOTIMPL;
}
HMODULE LoadedModule(const std::string& path) {
  void* module = dlopen(path.c_str(), RTLD_NOLOAD | RTLD_LAZY);
  if (module != nullptr) dlclose(module);  // the reference of its loader remains
  return static_cast<HMODULE>(module);
}
void UnloadUnusedModules() {}

// Natively debug output always goes to standard error.
DebugOutputToStderr::DebugOutputToStderr() = default;
DebugOutputToStderr::~DebugOutputToStderr() = default;

struct ServiceConnection::Identity {};
ServiceConnection::ServiceConnection(const ServiceLogon&) : status_(E_NOTIMPL) {}
ServiceConnection::ServiceConnection(platform::ComPtr<IWbemServices> services)
    : services_(std::move(services)) {}
ServiceConnection::~ServiceConnection() = default;
bool ServiceConnection::Exists() {
  return false;
}
void ServiceConnection::Secure(IUnknown*) const {}

std::string ReadPassword(const std::string&) {
  return "";
}

}  // namespace host::os
