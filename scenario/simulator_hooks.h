#pragma once
// What only the simulated libraries export beside the maker's operations: a host hands over the
// scenario that it has read, and a person at its shell changes the machine. A host finds both by
// name with GetProcAddress; where they are missing the libraries are no simulator.

#include <cstddef>

#ifndef SIMULATOR_API
#define SIMULATOR_API
#endif

namespace simulator {
struct Scenario;
/// Tells apart builds that lay a Scenario out differently, and so cannot hand it to each other.
std::size_t ScenarioLayout();
}  // namespace simulator

extern "C" {
/// Changes the member at `path` of the scenario that plays, all UTF-8. 1, or 0 with what is wrong
/// in `problem`, which has room for `size` bytes and is always terminated.
SIMULATOR_API int SimulatorSet(const char* path, const char* value, char* problem,
                               std::size_t size) noexcept;
/// Plays this scenario from now on, in place of the one that WIFI_SCENARIO names; keeps a copy. 1,
/// or 0 if the host was built with another `layout` than the simulator, or there is no memory.
SIMULATOR_API int SimulatorPlay(const simulator::Scenario* scenario, std::size_t layout) noexcept;
}
