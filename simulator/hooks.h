#pragma once

#include <cstring>
#include <exception>

#include "scenario/scenario.h"
#include "scenario/simulator_hooks.h"

namespace simulator {

/// Runs the steps of a hook. Returns 1, or 0 with the text of their exception in `problem`.
template <class Steps>
int RunHook(Steps&& steps, char* problem, std::size_t size) noexcept {
  try {
    steps();
    return 1;
  } catch (const std::exception& error) {
    std::strncpy(problem, error.what(), size - 1);
    problem[size - 1] = '\0';
    return 0;
  }
}

/// SimulatorSet for a library.
template <class Library>
int SetMember(Library& library, const char* path, const char* value, char* problem,
              std::size_t size) noexcept {
  return RunHook([&] { library.Change(path, value); }, problem, size);
}

/// SimulatorTime for a library.
template <class Library>
int SetTime(Library& library, long long milliseconds, char* problem, std::size_t size) noexcept {
  return RunHook([&] { library.SetTime(milliseconds); }, problem, size);
}

/// SimulatorPlay for a library.
template <class Library>
int PlayScenario(Library& library, std::string_view text, char* problem,
                 std::size_t size) noexcept {
  return RunHook([&] { library.Play(ParseScenario(text, "scenario")); }, problem, size);
}

}  // namespace simulator
