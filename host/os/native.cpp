#include <sys/ioctl.h>
#include <unistd.h>

#include <filesystem>

#include "host/os/os.h"
#include "platform/native/observe.h"

namespace host::os {

std::vector<std::string> Arguments(int argc, char** argv) {
  return argc > 1 ? std::vector<std::string>(argv + 1, argv + argc) : std::vector<std::string>();
}

void PrepareStreams() {}

bool IsTerminal(int standardStream) {
  return isatty(standardStream) == 1;
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

std::string LibraryFile(const std::string& name) {
  return "lib" + name + ".so";
}

bool KeepRegistryIn(const std::string& file) {
  return native::KeepRegistryIn(file);
}
bool HasComRegistration() {
  return false;
}
HRESULT RegisteredClassFactory(REFCLSID, IClassFactory**) {
  return E_NOTIMPL;
}
HMODULE LoadedModule(const std::string&) {
  return nullptr;
}
void UnloadUnusedModules() {}

std::string FileName(const std::string& path) {
  return path;
}

void SetEnvironment(const char* name, const std::string& value) {
  SetEnvironmentVariableA(name, value.c_str());
}

void SetOsVersion(HMODULE, DWORD major, DWORD minor) {
  native::SetOsVersion(VER_PLATFORM_WIN32_NT, major, minor);
}

// The registry lives in memory and starts empty.
PrivateLocalMachine::PrivateLocalMachine() {
  native::ClearRegistry();
}
PrivateLocalMachine::~PrivateLocalMachine() {
  native::ClearRegistry();
}

// Debug output goes to standard error of its own accord.
DebugOutputToStderr::DebugOutputToStderr() = default;
DebugOutputToStderr::~DebugOutputToStderr() = default;

Apartment::Apartment() = default;
Apartment::~Apartment() = default;

}  // namespace host::os
