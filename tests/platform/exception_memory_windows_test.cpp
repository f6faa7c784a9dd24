// This program uses the same memory for its exceptions as the module does.

#include <gtest/gtest.h>

#include <atomic>
#include <exception>
#include <vector>

#include "platform/platform.h"

namespace {

/// More threads than there are rows for them, all of which hold an exception at the same time.
class Crowd {
 public:
  Crowd() {
    for (HANDLE& thread : threads_) {
      thread =
          CreateThread(nullptr, 0x10000, Hold, this, STACK_SIZE_PARAM_IS_A_RESERVATION, nullptr);
    }
    while (holding_ < kThreads) Sleep(1);
  }
  Crowd(const Crowd&) = delete;
  Crowd& operator=(const Crowd&) = delete;
  ~Crowd() {
    for (HANDLE thread : threads_) CloseHandle(thread);
    CloseHandle(go_);
  }

  void Kill() {
    for (HANDLE thread : threads_) TerminateThread(thread, 0);
    Join();
  }
  /// The number of threads that began without an exception and still had their own at the end.
  int Finish() {
    SetEvent(go_);
    Join();
    return intact_;
  }

  static constexpr int kThreads = 1100;

 private:
  static DWORD WINAPI Hold(void* argument) {
    static_cast<Crowd*>(argument)->HoldOne();
    return 0;
  }
  void HoldOne() {
    const bool empty = std::current_exception() == nullptr && std::uncaught_exceptions() == 0;
    const DWORD self = GetCurrentThreadId();
    try {
      throw self;
    } catch (DWORD) {
      ++holding_;
      WaitForSingleObject(go_, INFINITE);
      try {
        throw;
      } catch (DWORD held) {
        if (empty && held == self) ++intact_;
      }
    }
  }
  void Join() {
    for (HANDLE thread : threads_) WaitForSingleObject(thread, INFINITE);
  }

  HANDLE go_ = CreateEventW(nullptr, TRUE, FALSE, nullptr);
  std::atomic<int> holding_ = 0;
  std::atomic<int> intact_ = 0;
  std::vector<HANDLE> threads_ = std::vector<HANDLE>(kThreads);
};

TEST(ExceptionMemory, HasRoomForMoreThreadsThanItsTable) {
  EXPECT_EQ(Crowd().Finish(), int{Crowd::kThreads});
}

TEST(ExceptionMemory, OutlivesThreadsThatAreEndedFromOutside) {
  Crowd().Kill();
  EXPECT_EQ(Crowd().Finish(), int{Crowd::kThreads});
}

}  // namespace
