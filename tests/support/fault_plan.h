#pragma once
// Makes one kind of outgoing call of the provider fail: the n-th, or the n-th and all later ones.
// The fakes check this at their entry; a sweep arms a plan and calls the provider inside
// InsideProvider.

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
  kEnd,  ///< not a step
};
/// A number for each step.
using StepCounts = std::array<int, static_cast<std::size_t>(Step::kEnd)>;

enum class Manner {
  kCode,        ///< returns a failing code
  kThrow,       ///< throws
  kNothing,     ///< returns success without a result
  kStructured,  ///< raises a structured exception, where the system has them
  kReenter,     ///< succeeds, after nested requests
  kEnd,         ///< not a manner
};

class FaultPlan {
 public:
  Step step;
  Manner manner;
  int nth;          ///< from 1
  bool persistent;  ///< and every later one
  std::function<void()> reenter = {};
  int seen = 0;
  int struck = 0;

  static inline FaultPlan* armed = nullptr;
  static inline StepCounts calls = {};             ///< by step, since the counts were last cleared
  static inline thread_local bool inside = false;  ///< whether the provider's own code runs
  static inline void (*raiseStructured)() = nullptr;

  /// Whether this call has to fail.
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

/// States, for its lifetime, whether the provider's code runs or that of tests and fakes.
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

/// One outgoing call of the provider. Its constructor throws or raises if the plan requires it.
class Outgoing {
 public:
  explicit Outgoing(Step step) : failure_(Strike(step)) {}
  /// Whether the call has to return code() without a result.
  bool struck() const { return failure_.has_value(); }
  HRESULT code() const { return failure_.value_or(S_OK); }

 private:
  /// What the call returns without a result; nullopt for a call that succeeds.
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
