// clang-format off
#include "platform/platform.h"
#include <tlhelp32.h>  // needs the header before it
// clang-format on

#include <algorithm>

#include "tests/support/held.h"

testing_support::Held testing_support::HeldByProcess() {
  Held held;
  HANDLE heaps[256];
  const DWORD count = std::min<DWORD>(GetProcessHeaps(256, heaps), 256);
  for (DWORD heap = 0; heap < count; ++heap) {
    PROCESS_HEAP_ENTRY block = {};
    while (HeapWalk(heaps[heap], &block)) {
      if ((block.wFlags & PROCESS_HEAP_ENTRY_BUSY) != 0) held.bytes += block.cbData;
    }
  }
  DWORD handles = 0;
  GetProcessHandleCount(GetCurrentProcess(), &handles);
  held.handles = handles;
  const HANDLE threads = CreateToolhelp32Snapshot(TH32CS_SNAPTHREAD, 0);
  THREADENTRY32 thread = {};
  thread.dwSize = sizeof(thread);
  for (BOOL more = Thread32First(threads, &thread); more; more = Thread32Next(threads, &thread)) {
    if (thread.th32OwnerProcessID == GetCurrentProcessId()) ++held.threads;
  }
  CloseHandle(threads);
  return held;
}
