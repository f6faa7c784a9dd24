#pragma once
// Makes one kind of call that leaves the provider fail: the n-th, or the n-th and all after it. The
// fakes ask at their entry; a sweep arms a plan and calls the provider inside InsideProvider.

#include <array>
#include <exception>
#include <functional>
#include <optional>
#include <utility>

#include "platform/platform.h"

namespace testing_support {

enum class Step {
  kHeap,  ///< operator new
  kText,  ///< a text or an array
  kFetch,
  kSignature,
  kSpawn,
  kPut,
  kGet,
  kIndicate,
  kStatus,
  kOpen,
  kNext,
  kAdapterLibrary,
  kProfileLibrary,
  kEnd,  ///< no step
};
/// A number for each step.
using StepCounts = std::array<int, static_cast<std::size_t>(Step::kEnd)>;

enum class Manner {
  kCode,        ///< answers a failing code
  kThrow,       ///< throws
  kNothing,     ///< answers success and gives nothing
  kStructured,  ///< raises a structured exception, where the system has them
  kReenter,     ///< goes well, and lets another request in first
  kEnd,         ///< no manner
};

class FaultPlan {
 public:
  Step step;
  Manner manner;
  int nth;          ///< from 1
  bool persistent;  ///< every later one too
  std::function<void()> reenter = {};
  int seen = 0;
  int struck = 0;

  static inline FaultPlan* armed = nullptr;
  static inline StepCounts calls = {};             ///< of each step since it was last cleared
  static inline thread_local bool inside = false;  ///< whether the provider's own code runs
  static inline void (*raiseStructured)() = nullptr;

  /// Whether this call is one that has to fail.
  static bool Hit(Step step) {
    if (!inside) return false;
    ++calls[static_cast<std::size_t>(step)];
    if (armed == nullptr || armed->step != step) return false;
    const int number = ++armed->seen;
    const bool hit = armed->persistent ? number >= armed->nth : number == armed->nth;
    if (hit) ++armed->struck;
    return hit;
  }
};

/// Says for its lifetime whether the provider's code runs or that of tests and fakes.
class Side {
 public:
  explicit Side(bool inside) : before_(std::exchange(FaultPlan::inside, inside)) {}
  Side(const Side&) = delete;
  Side& operator=(const Side&) = delete;
  ~Side() { FaultPlan::inside = before_; }

 private:
  bool before_;
};

inline constexpr HRESULT kPlannedFailure = static_cast<HRESULT>(0x800700AA);
struct PlannedException : std::exception {};

/// One call out of the provider. Its constructor throws or raises where the plan wants that.
class Outgoing {
 public:
  explicit Outgoing(Step step) : failure_(Strike(step)) {}
  /// Whether the call has to answer with code() and give nothing.
  bool struck() const { return failure_.has_value(); }
  HRESULT code() const { return failure_.value_or(S_OK); }

 private:
  /// What the call answers without giving anything; null for a call that goes well.
  static std::optional<HRESULT> Strike(Step step) {
    if (!FaultPlan::Hit(step)) return std::nullopt;
    FaultPlan& plan = *FaultPlan::armed;
    if (plan.manner == Manner::kThrow) throw PlannedException();
    if (plan.manner == Manner::kStructured) FaultPlan::raiseStructured();
    if (plan.manner == Manner::kReenter) {
      const Side outside(false);
      FaultPlan::armed = nullptr;
      plan.reenter();
      FaultPlan::armed = &plan;
      return std::nullopt;
    }
    return plan.manner == Manner::kNothing ? S_OK : kPlannedFailure;
  }

  std::optional<HRESULT> failure_;
  Side outside_{false};
};

}  // namespace testing_support
