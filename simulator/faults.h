#pragma once
// Faults, in one place for every operation of both libraries.

#include <chrono>
#include <mutex>
#include <string_view>
#include <thread>
#include <vector>

#include "platform/critical_section.h"
#include "scenario/scenario.h"

namespace simulator {

/// Raises a structured exception where the platform has them, else a C++ exception that names the
/// code.
[[noreturn]] void RaiseStructured(std::uint32_t code);

class FaultSchedule {
 public:
  explicit FaultSchedule(std::vector<Fault> faults);

  /// From now on it is this time of the timeline, in milliseconds.
  void MoveTo(std::int64_t time) { time_ = time; }
  /// The fault to apply to this call, if any: the first that matches at this time, has begun and is
  /// not used up.
  /// The call counter of every matching fault is incremented, not only of the one applied.
  std::optional<Fault> Take(std::string_view operation,
                            std::optional<adapterapi::AdapterNumber> adapter);

 private:
  struct Counted {
    Fault fault;
    std::uint32_t calls = 0;  ///< that matched
  };
  std::vector<Counted> faults_;
  std::int64_t time_ = 0;
};

/// Applies the fault: returns its status, or throws.
std::int32_t Strike(const Fault& fault);

/// Runs one operation under the lock, with its fault if there is one. The lock is free during the
/// fault's delay and before an exception is thrown: a structured exception does not unwind the
/// stack.
template <class Call>
std::int32_t RunWithFaults(platform::CriticalSection& mutex, FaultSchedule& plan,
                           std::string_view operation,
                           std::optional<adapterapi::AdapterNumber> adapter, Call&& call) {
  const auto take = [&] {
    const std::lock_guard lock(mutex);
    return plan.Take(operation, adapter);
  };
  const std::optional<Fault> fault = take();
  const bool onlyWaits = fault && fault->kind == Fault::Kind::kDelay;
  if (fault && fault->delayMs > 0) {
    std::this_thread::sleep_for(std::chrono::milliseconds(fault->delayMs));
  }
  std::int32_t status = 0;
  if (!fault || onlyWaits || fault->output) {
    const std::lock_guard lock(mutex);
    status = call();
  }
  if (!fault) return status;
  const std::int32_t struck = Strike(*fault);
  return onlyWaits ? status : struck;
}

}  // namespace simulator
