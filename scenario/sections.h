#pragma once

#include "scenario/node.h"
#include "scenario/scenario.h"

namespace simulator {

/// Reads a whole scenario over what `scenario` already holds; every adapter starts as `initial`.
/// Throws ScenarioError.
void ReadScenario(const Node& root, const Adapter& initial, Scenario& scenario);

/// Adds the adapter that `node` describes over `initial` to those before it. Throws ScenarioError.
void AppendAdapter(const Node& node, const Adapter& initial, std::vector<Adapter>& adapters);

/// Reads members of one adapter over what it already holds. Throws ScenarioError.
void ReadAdapter(const Node& node, Adapter& adapter);

/// The faults of the section of that name, about adapters of `adapters` alone.
std::vector<Fault> ReadFaults(const Node& node, std::span<const Adapter> adapters);

/// The platform's own view of the adapters, for a scenario that does not state it.
std::vector<PlatformAdapter> PlatformAdaptersOf(std::span<const Adapter> adapters);

}  // namespace simulator
