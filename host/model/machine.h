#pragma once
// What a machine shows, once: made of a dump, wherever that came from. Pages, charts and tables
// draw it and have no rules of their own.

#include <string>
#include <vector>

#include "host/model/adapters.h"
#include "host/model/findings.h"
#include "host/model/networks.h"
#include "host/model/source.h"

namespace host {

struct Machine {
  /// `dump` is needed no longer once the machine is made.
  explicit Machine(const Dump& dump);
  Machine(const Machine&) = delete;
  Machine& operator=(const Machine&) = delete;

  Source source;
  std::vector<Network> networks;
  std::vector<Adapter> adapters;  ///< in the order of their numbers
  /// Why there may be more adapters, or why none is known; empty if these are all.
  std::string whyMoreAdapters;
  std::vector<Finding> findings;
};

/// How the enumeration of a class ended early and what is not known for that, in a sentence's
/// words; empty if it ended well, or at an empty list of the last adapter.
std::string FailureOf(const Dump& dump, const std::string& className);

}  // namespace host
