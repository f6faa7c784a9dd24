#pragma once
// What a reader of a machine should look at first.

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
  std::string detail = {};  ///< empty for none
  // Where more is shown; without either, at the adapters.
  std::optional<Spectrum> spectrum = {};
  std::string className = {};
};

struct Machine;

/// The heaviest first. What is found alike at more than a few adapters or classes is one finding
/// with their number.
std::vector<Finding> FindingsOf(const Machine& machine, const Dump& dump);

}  // namespace host
