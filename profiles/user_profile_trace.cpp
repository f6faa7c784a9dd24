#include "profiles/user_profile_trace.h"

#include <memory>
#include <type_traits>

#include "platform/platform.h"
#include "provider/core/trace.h"

namespace wifi {
namespace {

struct CloseToken {
  void operator()(HANDLE token) const { CloseHandle(token); }
};
using Token = std::unique_ptr<std::remove_pointer_t<HANDLE>, CloseToken>;

struct FreeModule {
  void operator()(HMODULE module) const { FreeLibrary(module); }
};
using Module = std::unique_ptr<std::remove_pointer_t<HMODULE>, FreeModule>;

using GetDirectory = BOOL(WINAPI*)(HANDLE, LPSTR, DWORD*);

Token ThreadToken() {
  HANDLE token = nullptr;
  return Token(OpenThreadToken(GetCurrentThread(), TOKEN_QUERY, TRUE, &token) ? token : nullptr);
}

Token ProcessToken() {
  HANDLE token = nullptr;
  return Token(OpenProcessToken(GetCurrentProcess(), TOKEN_QUERY, &token) ? token : nullptr);
}

}  // namespace

int TraceUserProfileDirectory() {
  const Token thread = ThreadToken();
  if (!thread) {
    TraceMessage("Unable to read thread token\n");
    return 0;
  }
  TraceMessage("New");
  char directory[100] = {};
  {
    const Module library(LoadLibraryA("userenv.dll"));
    const auto getDirectory = reinterpret_cast<GetDirectory>(reinterpret_cast<void*>(
        library ? GetProcAddress(library.get(), "GetUserProfileDirectoryA") : nullptr));
    if (const Token process = ProcessToken(); process && getDirectory != nullptr) {
      DWORD size = sizeof(directory);
      getDirectory(thread.get(), directory, &size);
      TraceMessage("Open Yes\n");
    } else {
      TraceMessage("Open No\n");
    }
  }
  directory[sizeof(directory) - 1] = '\0';
  TraceMessage(directory);
  return 0;
}

}  // namespace wifi
