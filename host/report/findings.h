#pragma once
// What a reader of a dump should look at first.

#include <string>
#include <vector>

#include "host/report/networks.h"

namespace host {

enum class Weight { kProblem, kAttention, kNote };

struct Finding {
  Weight weight;
  std::string headline;
  std::string detail;  ///< empty for none
  std::string place;   ///< id of the section of the report that shows more
};

/// The heaviest first. `networks` are those of the dump.
std::vector<Finding> FindingsOf(const Json& dump, const std::vector<Network>& networks);

/// What the enumeration of a class reported, empty if it succeeded.
std::string FailureOf(const Json& dump, const std::string& className);

/// What a person calls an adapter: its description, with its key.
std::string AdapterTitle(const Json& dump, const std::string& key);

/// Ids of the sections.
inline constexpr const char* kAdaptersId = "adapters";
std::string SpectrumId(Spectrum spectrum);
std::string SpectrumTitle(Spectrum spectrum);
std::string ClassId(const std::string& className);

}  // namespace host
