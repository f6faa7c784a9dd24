// What GCC's stack protector calls. GCC's own library for it asks the system for random numbers,
// which loads another DLL while the module is being loaded; the value here is made as other
// compilers make theirs.

#include <cstdint>

#include "platform/platform.h"

extern "C" {

/// The value between the buffers of a protected function and its return address.
std::uintptr_t __stack_chk_guard = 0x595E9FBD94FDA766;

/// A buffer on the stack was overrun: no code of this process may run on, not even a handler.
[[noreturn]] void __stack_chk_fail() {
  TerminateProcess(GetCurrentProcess(), 0xC0000409);  // STATUS_STACK_BUFFER_OVERRUN
  for (;;) {
  }
}

}  // extern "C"

namespace {

/// Runs when the file is loaded, before any protected function, and must not be one itself.
__attribute__((constructor(101), no_stack_protector)) void ChooseGuard() {
  FILETIME now = {};
  LARGE_INTEGER counter = {};
  GetSystemTimeAsFileTime(&now);
  QueryPerformanceCounter(&counter);
  std::uintptr_t guard = reinterpret_cast<std::uintptr_t>(&now);  // where the system put the stack
  guard ^= (static_cast<std::uintptr_t>(now.dwHighDateTime) << 32) | now.dwLowDateTime;
  guard ^= static_cast<std::uintptr_t>(counter.QuadPart) << 24;
  guard ^= (static_cast<std::uintptr_t>(GetCurrentProcessId()) << 32) ^ GetCurrentThreadId();
  __stack_chk_guard ^= guard;
}

}  // namespace
