#pragma once

#include <cstring>
#include <exception>

#include "scenario/scenario.h"
#include "scenario/simulator_hooks.h"

namespace simulator {

/// SimulatorSet over a library.
template <class Library>
int SetMember(Library& library, const char* path, const char* value, char* problem,
              std::size_t size) noexcept {
  try {
    library.Change(path, value);
    return 1;
  } catch (const std::exception& error) {
    std::strncpy(problem, error.what(), size - 1);
    problem[size - 1] = '\0';
    return 0;
  }
}

/// SimulatorPlay over a library.
template <class Library>
int PlayScenario(Library& library, const Scenario& scenario, std::size_t layout) noexcept {
  if (layout != ScenarioLayout()) return 0;
  try {
    library.Play(scenario);
    return 1;
  } catch (const std::exception&) {
    return 0;
  }
}

}  // namespace simulator
