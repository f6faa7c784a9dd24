#include <dlfcn.h>
#include <link.h>

#include <climits>
#include <cstdlib>
#include <cstring>
#include <memory>
#include <string>

#include "platform/native/system.h"
#include "platform/native/user_profile.h"

namespace {

// Its address is the handle of "userenv.dll", the only built-in module.
const char userenvModule = 0;
HMODULE UserenvModule() {
  return reinterpret_cast<HMODULE>(const_cast<char*>(&userenvModule));
}

std::string ProgramPath() {
  const std::unique_ptr<char, decltype(&std::free)> path(realpath("/proc/self/exe", nullptr),
                                                         &std::free);
  return path ? std::string(path.get()) : std::string();
}

// The file of a module. The handle is what LoadLibraryA returned, or an address inside the module,
// which is what DllMain receives.
std::string PathOf(HMODULE module) {
  if (module == nullptr) return ProgramPath();
  if (module == UserenvModule()) return "userenv.dll";
  Dl_info info;
  if (dladdr(module, &info) != 0) return info.dli_fname;
  link_map* map = nullptr;
  if (dlinfo(module, RTLD_DI_LINKMAP, &map) != 0) return {};
  return map->l_name;
}

}  // namespace

HMODULE LoadLibraryA(LPCSTR name) {
  if (name == nullptr || *name == '\0') {
    SetLastError(ERROR_INVALID_PARAMETER);
    return nullptr;
  }
  if (std::strcmp(name, "userenv.dll") == 0) return UserenvModule();
  std::string path = name;
  if (path.find('/') == std::string::npos) {
    const std::string program = ProgramPath();
    path.insert(0, program, 0, program.rfind('/') + 1);
  }
  void* module = dlopen(path.c_str(), RTLD_NOW | RTLD_LOCAL);
  if (module == nullptr) SetLastError(ERROR_MOD_NOT_FOUND);
  return static_cast<HMODULE>(module);
}

FARPROC GetProcAddress(HMODULE module, LPCSTR name) {
  if (module == nullptr || name == nullptr) {
    SetLastError(ERROR_INVALID_HANDLE);
    return nullptr;
  }
  FARPROC found = nullptr;
  if (module != UserenvModule()) {
    found = reinterpret_cast<FARPROC>(dlsym(module, name));
  } else if (std::strcmp(name, "GetUserProfileDirectoryA") == 0) {
    found = reinterpret_cast<FARPROC>(native::UserProfileDirectory);
  }
  if (found == nullptr) SetLastError(ERROR_PROC_NOT_FOUND);
  return found;
}

BOOL FreeLibrary(HMODULE module) {
  if (module == UserenvModule()) return TRUE;
  if (module == nullptr || dlclose(module) != 0) {
    SetLastError(ERROR_INVALID_HANDLE);
    return FALSE;
  }
  return TRUE;
}

DWORD GetModuleFileNameW(HMODULE module, LPWSTR name, DWORD size) {
  const std::string path = PathOf(module);
  char absolute[PATH_MAX];
  const char* file = realpath(path.c_str(), absolute) == nullptr ? path.c_str() : absolute;
  if (*file == '\0' || size == 0 || size > INT_MAX) {
    SetLastError(*file == '\0' ? ERROR_MOD_NOT_FOUND : ERROR_INSUFFICIENT_BUFFER);
    return 0;
  }
  const int length = MultiByteToWideChar(CP_UTF8, 0, file, -1, name, static_cast<int>(size));
  if (length != 0) return static_cast<DWORD>(length - 1);
  // Too long: truncated, with a terminator.
  name[size - 1] = u'\0';
  return size;
}
