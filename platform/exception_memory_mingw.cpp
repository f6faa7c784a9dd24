// Allocates the C++ exceptions of this module, in place of the compiler's own runtime. That runtime
// allocates memory, a lock and a record of the thread for the first exception: if memory is short
// it ends the process, and it frees nothing when the module is unloaded. Here all is freed with the
// module. If memory is short, only an exception of more than a block, or a thread beyond the first
// table, ends the process. Names and layouts are those of the compiler's C++ ABI, which
// CheckExceptionLayout.cmake compares with the installed runtime. Linked into each module
// separately.

#include <cxxabi.h>
#include <unwind.h>

#include <atomic>
#include <cstddef>
#include <cstdlib>
#include <cstring>
#include <exception>
#include <new>
#include <utility>

#include "platform/platform.h"

namespace {

/// The size in bytes of the runtime's header in front of each exception object. It must be exact,
/// because one module may free an exception that another one allocated.
constexpr std::size_t kHeader = 160;
static_assert(sizeof(_Unwind_Exception) == 64, "the header was measured with this part");

/// Blocks for exceptions when malloc fails. A program does not have as many exceptions at a time.
struct Reserve {
  static constexpr std::size_t kCount = 64;
  struct alignas(std::max_align_t) Block {
    unsigned char bytes[512];
  };
  Block blocks[kCount];
  std::atomic<bool> taken[kCount];

  void* Take(std::size_t size) noexcept {
    if (size > sizeof(Block)) return nullptr;
    for (std::size_t index = 0; index < kCount; ++index) {
      if (!taken[index].exchange(true)) return &blocks[index];
    }
    return nullptr;
  }
  bool Return(void* memory) noexcept {
    auto* block = static_cast<Block*>(memory);
    if (block < blocks || block >= blocks + kCount) return false;
    taken[block - blocks] = false;
    return true;
  }
};
constinit Reserve reserve = {};

void* Allocate(std::size_t size) noexcept {
  void* memory = std::malloc(size);
  if (memory == nullptr) memory = reserve.Take(size);
  if (memory == nullptr) std::terminate();
  return std::memset(memory, 0, kHeader);
}

void Free(void* memory) noexcept {
  if (!reserve.Return(memory)) std::free(memory);
}

/// The exceptions that a thread has thrown and caught. `thread` is its id; 0 is a free row. The
/// search for a row begins at an index made from the id. The row is freed when the thread ends.
struct ThreadRow {
  std::atomic<DWORD> thread;
  struct {
    void* caught;
    unsigned int uncaught;
  } books;  ///< the runtime's __cxa_eh_globals
};
/// Enough rows for nearly all programs. When all are taken, another table is allocated, which is
/// freed when the module is unloaded.
struct ThreadTable {
  static constexpr std::size_t kRows = 1024;
  ThreadRow rows[kRows];
  std::atomic<ThreadTable*> next;
};
constinit ThreadTable firstThreads = {};

ThreadRow* TakeRow(DWORD wanted, DWORD mark) noexcept {
  const std::size_t home = GetCurrentThreadId() / 4;  // thread ids are multiples of 4
  for (ThreadTable* table = &firstThreads; table != nullptr; table = table->next) {
    for (std::size_t step = 0; step < ThreadTable::kRows; ++step) {
      ThreadRow& row = table->rows[(home + step) % ThreadTable::kRows];
      DWORD expected = wanted;
      if (row.thread.load() == wanted && row.thread.compare_exchange_strong(expected, mark)) {
        return &row;
      }
    }
  }
  return nullptr;
}

void AddTable() noexcept {
  void* memory = std::malloc(sizeof(ThreadTable));
  if (memory == nullptr) std::terminate();
  ThreadTable* const added = new (memory) ThreadTable{};
  ThreadTable* last = &firstThreads;
  for (ThreadTable* next = nullptr; !last->next.compare_exchange_strong(next, added);) {
    last = std::exchange(next, nullptr);
  }
}

void FreeTables() noexcept {
  ThreadTable* table = firstThreads.next.exchange(nullptr);
  while (table != nullptr) std::free(std::exchange(table, table->next));
}

/// A new thread has no exceptions: a row with its id belonged to a thread that was terminated, and
/// is freed. When the process ends, the tables need not be freed.
void NTAPI OnThread(PVOID, DWORD reason, PVOID processEnds) {
  if (reason == DLL_THREAD_ATTACH || reason == DLL_THREAD_DETACH) {
    TakeRow(GetCurrentThreadId(), 0);
  } else if (reason == DLL_PROCESS_DETACH && processEnds == nullptr) {
    FreeTables();
  }
}

}  // namespace

// The system calls it when a thread begins or ends, and when the module is unloaded.
extern "C" __attribute__((section(".CRT$XLE"), used))
const PIMAGE_TLS_CALLBACK exception_memory_on_thread = OnThread;

namespace __cxxabiv1 {
extern "C" {

__cxa_eh_globals* __cxa_get_globals() noexcept {
  const DWORD self = GetCurrentThreadId();
  if (ThreadRow* row = TakeRow(self, self)) return reinterpret_cast<__cxa_eh_globals*>(&row->books);
  ThreadRow* row = nullptr;
  while ((row = TakeRow(0, self)) == nullptr) AddTable();
  row->books = {};
  return reinterpret_cast<__cxa_eh_globals*>(&row->books);
}
__cxa_eh_globals* __cxa_get_globals_fast() noexcept {
  return __cxa_get_globals();
}

void* __cxa_allocate_exception(std::size_t size) noexcept {
  return static_cast<unsigned char*>(Allocate(size + kHeader)) + kHeader;
}
void __cxa_free_exception(void* exception) noexcept {
  Free(static_cast<unsigned char*>(exception) - kHeader);
}
__cxa_dependent_exception* __cxa_allocate_dependent_exception() noexcept {
  return static_cast<__cxa_dependent_exception*>(Allocate(kHeader));
}
void __cxa_free_dependent_exception(__cxa_dependent_exception* exception) noexcept {
  Free(exception);
}

}  // extern "C"
}  // namespace __cxxabiv1
