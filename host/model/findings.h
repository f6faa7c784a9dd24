#pragma once
// What a reader should look at first.

#include <optional>
#include <string>
#include <vector>

#include "host/model/adapters.h"
#include "host/model/networks.h"

namespace host {

enum class Weight { kProblem, kAttention, kNote };

struct Finding {
  Weight weight = Weight::kNote;
  std::string headline = {};
  std::string detail = {};  ///< empty without a detail
  // Where more is shown; at the adapters if there is neither.
  std::optional<Spectrum> spectrum = {};
  std::string className = {};
};

struct Machine;

/// A signal of this strength or less is weak, in dBm.
inline constexpr int kWeakSignal = -75;

/// The most important first. If more than a few adapters or classes have the same finding, it is
/// one finding with their number.
std::vector<Finding> FindingsOf(const Machine& machine, const Dump& dump, int weakSignal);

}  // namespace host
