#pragma once

#include <chrono>
#include <functional>

#include "platform/platform.h"

namespace host {

/// How long a command waits for a service in all. Ctrl-C ends the wait too, while the object lives.
class Patience {
 public:
  /// The time begins now; 0 is no limit.
  explicit Patience(std::chrono::milliseconds limit);
  Patience(const Patience&) = delete;
  Patience& operator=(const Patience&) = delete;
  ~Patience();

  /// Does the work on a thread of its own. S_OK when it is done; an exception of it is passed on.
  /// Otherwise kLate or WBEM_E_CALL_CANCELLED: then it was not begun, or goes on alone, so it must
  /// own all that it uses.
  HRESULT Await(std::function<void()> work) const;

 private:
  using Clock = std::chrono::steady_clock;

  HRESULT Ended() const;

  Clock::time_point end_;
  void (*before_)(int);
};

}  // namespace host
