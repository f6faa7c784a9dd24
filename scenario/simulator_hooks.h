#pragma once
// What only the simulated libraries export beside the maker's operations: a person at a host's
// shell changes the machine that they play. A host finds both by name with GetProcAddress; where
// they are missing the libraries are no simulator.

#include <cstddef>

#ifndef SIMULATOR_API
#define SIMULATOR_API
#endif

extern "C" {
/// Changes the member at `path` of the scenario that plays, all UTF-8. 1, or 0 with what is wrong
/// in `problem`, which has room for `size` bytes and is always terminated.
SIMULATOR_API int SimulatorSet(const char* path, const char* value, char* problem,
                               std::size_t size) noexcept;
/// Forgets the machine: the next operation reads the scenario that WIFI_SCENARIO names.
SIMULATOR_API void SimulatorReload() noexcept;
}
