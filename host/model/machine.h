#pragma once
// What a machine shows, computed once from a dump of any origin. Pages, charts and tables only draw
// it and have no rules of their own.

#include <string>
#include <vector>

#include "host/model/adapters.h"
#include "host/model/findings.h"
#include "host/model/networks.h"
#include "host/model/source.h"

namespace host {

struct Machine {
  /// `dump` is not needed after construction. A signal of `weakSignal` dBm or less is weak.
  explicit Machine(const Dump& dump, int weakSignal = kWeakSignal);
  Machine(const Machine&) = delete;
  Machine& operator=(const Machine&) = delete;

  Source source;
  std::vector<Network> networks;
  std::vector<Adapter> adapters;  ///< in the order of their numbers
  /// Why there may be more adapters, or why none is known; empty if these are all.
  std::string whyMoreAdapters;
  std::vector<Finding> findings;
};

/// How the enumeration of a class ended early and what is unknown because of that, as words of a
/// sentence; empty if it ended normally, or at an empty list of the last adapter.
std::string FailureOf(const Dump& dump, const std::string& className);

}  // namespace host
