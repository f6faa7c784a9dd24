#include <dlfcn.h>
#include <sys/ioctl.h>
#include <unistd.h>

#include <cstdlib>
#include <filesystem>
#include <string_view>

#include "host/os/os.h"

namespace host::os {

std::vector<std::string> Arguments(int argc, char** argv) {
  return argc > 1 ? std::vector<std::string>(argv + 1, argv + argc) : std::vector<std::string>();
}

void PrepareStreams() {}

bool IsTerminal(int standardStream) {
  return isatty(standardStream) == 1;
}

bool TerminalColors() {
  const char* terminal = std::getenv("TERM");
  return IsTerminal(STDOUT_FILENO) && terminal != nullptr && std::string_view(terminal) != "dumb";
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
  return LoadLibraryA(path.c_str());
}

std::string LoadProblem(const std::string& path) {
  // The loader's own words say which file or symbol is missing; they may begin with the path.
  const char* words = dlerror();
  const std::string problem = words == nullptr ? "unknown reason" : words;
  return problem.starts_with(path + ": ") ? problem.substr(path.size() + 2) : problem;
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
  if (module != nullptr) dlclose(module);  // who loaded it keeps it
  return static_cast<HMODULE>(module);
}
void UnloadUnusedModules() {}

std::string FileName(const std::string& path) {
  return path;
}

void SetEnvironment(const char* name, const std::string& value) {
  SetEnvironmentVariableA(name, value.c_str());
}

// Debug output goes to standard error of its own accord.
DebugOutputToStderr::DebugOutputToStderr() = default;
DebugOutputToStderr::~DebugOutputToStderr() = default;

Apartment::Apartment() = default;
Apartment::~Apartment() = default;

}  // namespace host::os
