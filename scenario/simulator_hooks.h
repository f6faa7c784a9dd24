#pragma once
// Exports that only the simulated libraries have: with them a host passes on the text of a scenario
// that it has read and moves its time, and a user of its shell changes the machine. A host looks
// them up by name with GetProcAddress; a library without them is no simulator.

#include <cstddef>

#ifndef SIMULATOR_API
#define SIMULATOR_API
#endif

extern "C" {
/// Changes the member at `path` of the current scenario; texts are UTF-8. Returns 1, or 0 with the
/// error in `problem`, which has room for `size` bytes and is always terminated.
SIMULATOR_API int SimulatorSet(const char* path, const char* value, char* problem,
                               std::size_t size) noexcept;
/// From now on plays the scenario in `text`, `length` bytes, instead of the one that WIFI_SCENARIO
/// names. Returns 1, or 0 with the error in `problem`, as above; then the old scenario stays.
SIMULATOR_API int SimulatorPlay(const char* text, std::size_t length, char* problem,
                                std::size_t size) noexcept;
/// From now on, until another scenario is played, the time of the scenario's timeline stands still
/// at `milliseconds` after its start, instead of following the system's clock. Returns 1, or 0 with
/// the error in `problem`, as above.
SIMULATOR_API int SimulatorTime(long long milliseconds, char* problem, std::size_t size) noexcept;
}
