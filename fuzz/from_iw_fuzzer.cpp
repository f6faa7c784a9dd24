// Arbitrary bytes give a scenario that can be read, or are refused with ScenarioError.

#include "fuzz/fuzz_target.h"
#include "scenario/from_iw.h"
#include "scenario/scenario.h"

void Fuzz_from_iw(FuzzInput bytes) {
  std::string scenario;
  try {
    scenario = simulator::ScenarioFromIw(TextOf(bytes), "input").json;
  } catch (const simulator::ScenarioError&) {
    return;
  }
  simulator::ParseScenario(scenario, "made of the input");
}
