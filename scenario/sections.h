#pragma once

#include "scenario/node.h"
#include "scenario/scenario.h"

namespace simulator {

/// Reads a whole scenario over the present content of `scenario`; every adapter starts as
/// `initial`. Throws ScenarioError.
void ReadScenario(const Node& root, const Adapter& initial, Scenario& scenario);

/// Appends the adapter that `node` describes, starting from `initial`. Throws ScenarioError.
void AppendAdapter(const Node& node, const Adapter& initial, std::vector<Adapter>& adapters);

/// Reads members of one adapter over its present content. Throws ScenarioError.
void ReadAdapter(const Node& node, Adapter& adapter);

/// The faults of the section `node`; they may name only adapters of `adapters`.
std::vector<Fault> ReadFaults(const Node& node, std::span<const Adapter> adapters);

/// The platform's view of the adapters, for a scenario that does not give it.
std::vector<PlatformAdapter> PlatformAdaptersOf(std::span<const Adapter> adapters);

}  // namespace simulator
