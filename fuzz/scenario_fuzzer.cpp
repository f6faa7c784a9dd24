// Any bytes at all are a scenario, or are refused with ScenarioError.

#include <cstddef>
#include <cstdint>

#include "scenario/scenario.h"

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
  try {
    simulator::ParseScenario({reinterpret_cast<const char*>(data), size}, "input");
  } catch (const simulator::ScenarioError&) {
  }
  return 0;
}
