// Any bytes at all give a scenario that can be read, or are refused with ScenarioError.

#include <cstddef>
#include <cstdint>

#include "scenario/from_iw.h"
#include "scenario/scenario.h"

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
  std::string scenario;
  try {
    scenario = simulator::ScenarioFromIw({reinterpret_cast<const char*>(data), size}, "input").json;
  } catch (const simulator::ScenarioError&) {
    return 0;
  }
  simulator::ParseScenario(scenario, "made of the input");
  return 0;
}
