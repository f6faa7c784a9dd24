#include "scenario/scenario.h"

#include "platform/embedded_text.h"
#include "platform/environment.h"
#include "platform/platform.h"
#include "scenario/parse.h"
#include "scenario/sections.h"
#include "scenario/text_file.h"

EMBEDDED_TEXT(default_scenario)
EMBEDDED_TEXT(scenario_defaults)

namespace simulator {
namespace {

using nlohmann::json;

/// The default scenario; its one adapter has the defaults for every adapter.
Scenario Defaults() {
  Scenario scenario;
  AdapterAppender appender;
  const auto append = [&](const Node& node) {
    appender.Append(node, Adapter{}, scenario.adapters);
  };
  const json value = ParseScenarioText(embedded::scenario_defaults(), append);
  ReadScenario({value}, scenario);
  return scenario;
}

/// A scenario's text, with its name for messages.
struct NamedText {
  std::string name;
  std::string text;
};

NamedText ReadScenarioText(const std::string& path) {
  if (path.empty()) return {"compiled-in scenario", std::string(embedded::default_scenario())};
  try {
    return {path, ReadTextFile(path)};
  } catch (const FileError& error) {
    throw ScenarioError(error.what());
  }
}

Scenario ParseNamed(std::string_view text, const std::string& name) {
  if (text.empty()) throw ScenarioError(name + ": it is empty");
  return ParseScenario(text, name);
}

}  // namespace

Scenario ParseScenario(std::string_view text, const std::string& file) {
  Scenario scenario = Defaults();
  const Adapter initial = scenario.adapters.front();
  scenario.adapters.clear();
  scenario.platform.adapters.clear();
  AdapterAppender appender;
  try {
    const json value = ParseScenarioText(
        text, [&](const Node& node) { appender.Append(node, initial, scenario.adapters); });
    ReadScenario({value}, scenario);
    CheckTimeline(scenario);
  } catch (const ScenarioError& error) {
    throw ScenarioError(file + ": " + error.what());
  }
  return scenario;
}

Scenario LoadScenario(const std::string& path) {
  const NamedText read = ReadScenarioText(path);
  return ParseNamed(read.text, read.name);
}

std::optional<Scenario> ScenarioOfEnvironment() {
  try {
    const std::string path = platform::EnvironmentText("WIFI_SCENARIO").value_or("");
    Scenario scenario = LoadScenario(path);
    if (!path.empty() && !scenario.timeline.start) scenario.timeline.start = WrittenAt(path);
    return scenario;
  } catch (const ScenarioError& error) {
    OutputDebugStringA((std::string(error.what()) + "\n").c_str());
    return std::nullopt;
  }
}

LoadedScenario LoadForHost(const std::string& path) {
  NamedText read = ReadScenarioText(path);
  return ReadForHost(std::move(read.text), read.name);
}

LoadedScenario ReadForHost(std::string text, const std::string& name) {
  Scenario scenario = ParseNamed(text, name);
  return {std::move(scenario.platform), std::move(text), scenario.timeline.start};
}

}  // namespace simulator
