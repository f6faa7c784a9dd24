#pragma once
// What only the simulated libraries export beside the maker's operations: a host hands over the
// text of the scenario that it has read, and a person at its shell changes the machine. A host
// finds both by name with GetProcAddress; where they are missing the libraries are no simulator.

#include <cstddef>

#ifndef SIMULATOR_API
#define SIMULATOR_API
#endif

extern "C" {
/// Changes the member at `path` of the scenario that plays, all UTF-8. 1, or 0 with what is wrong
/// in `problem`, which has room for `size` bytes and is always terminated.
SIMULATOR_API int SimulatorSet(const char* path, const char* value, char* problem,
                               std::size_t size) noexcept;
/// Plays the scenario of this text, `length` bytes, from now on, in place of the one that
/// WIFI_SCENARIO names. 1, or 0 with what is wrong in `problem`, as above; the old one then plays
/// on.
SIMULATOR_API int SimulatorPlay(const char* text, std::size_t length, char* problem,
                                std::size_t size) noexcept;
}
