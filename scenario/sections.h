#pragma once

#include <set>
#include <string>

#include "scenario/node.h"
#include "scenario/scenario.h"

namespace simulator {

/// Reads a whole scenario, whose adapters are there already, over what `scenario` holds. Throws
/// ScenarioError.
void ReadScenario(const Node& root, Scenario& scenario);

/// Adds adapters, no two of which may have one number or one address.
class AdapterAppender {
 public:
  /// Adds the adapter that `node` describes over `initial` to those before it. Throws
  /// ScenarioError.
  void Append(const Node& node, const Adapter& initial, std::vector<Adapter>& adapters);

 private:
  std::set<std::uint32_t> numbers_;
  std::set<std::string> addresses_;
};

/// Reads members of one adapter over its present content. Throws ScenarioError.
void ReadAdapter(const Node& node, Adapter& adapter);

/// The numbers of the adapters that a fault may name.
using AdapterNumbers = std::vector<adapterapi::AdapterNumber>;

/// The faults of the section `node`; they may name only these adapters, or any if it is null.
std::vector<Fault> ReadFaults(const Node& node, const AdapterNumbers* adapters);
/// Reads members of one fault over its present content. Throws ScenarioError.
void ReadFault(const Node& node, const AdapterNumbers* adapters, Fault& fault);

/// A time of the timeline, in milliseconds. Throws ScenarioError.
std::int64_t ReadTime(const Node& node);
/// Reads the section `node`.
Timeline ReadTimeline(const Node& node);
/// Tries every change of the timeline on a copy. Throws ScenarioError with the step.
void CheckTimeline(const Scenario& scenario);

/// The platform's view of the adapters, for a scenario that does not give it.
std::vector<PlatformAdapter> PlatformAdaptersOf(std::span<const Adapter> adapters);

}  // namespace simulator
