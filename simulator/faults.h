#pragma once
// Faults in one place for every operation of both libraries.

#include <mutex>
#include <string_view>
#include <vector>

#include "platform/critical_section.h"
#include "scenario/scenario.h"

namespace simulator {

/// Raises a structured exception where the platform has them, else a C++ exception that names the
/// code.
[[noreturn]] void RaiseStructured(std::uint32_t code);

class FaultPlan {
 public:
  explicit FaultPlan(std::vector<Fault> faults) : faults_(std::move(faults)) {}

  /// The fault that this call meets, if any, counted as met.
  std::optional<Fault> Take(std::string_view operation,
                            std::optional<adapterapi::AdapterNumber> adapter);

 private:
  std::vector<Fault> faults_;
};

/// Lets the fault happen: returns its status, or throws.
std::int32_t Strike(const Fault& fault);

/// Runs one operation under the lock and as its fault, if any, says. The lock is free again before
/// anything is thrown: a structured exception does not unwind.
template <class Call>
std::int32_t RunWithFaults(platform::CriticalSection& mutex, FaultPlan& plan,
                           std::string_view operation,
                           std::optional<adapterapi::AdapterNumber> adapter, Call&& call) {
  std::optional<Fault> fault;
  std::int32_t status = 0;
  {
    const std::lock_guard lock(mutex);
    fault = plan.Take(operation, adapter);
    if (!fault || fault->output) status = call();
  }
  return fault ? Strike(*fault) : status;
}

}  // namespace simulator
