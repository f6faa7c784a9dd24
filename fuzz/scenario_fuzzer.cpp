// Arbitrary bytes are a scenario, or are refused with ScenarioError.

#include "fuzz/fuzz_target.h"
#include "scenario/scenario.h"

void Fuzz_scenario(FuzzInput bytes) {
  try {
    simulator::ParseScenario(TextOf(bytes), "input");
  } catch (const simulator::ScenarioError&) {
  }
}
