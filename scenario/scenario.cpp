#include "scenario/scenario.h"

#include <algorithm>
#include <set>

#include "platform/embedded_text.h"
#include "platform/environment.h"
#include "scenario/sections.h"
#include "scenario/text_file.h"

EMBEDDED_TEXT(default_scenario)
EMBEDDED_TEXT(scenario_defaults)

namespace simulator {
namespace {

using nlohmann::json;

constexpr int kMostLevels = 16;

/// Line and column, from 1, of the byte with this number.
std::string PlaceOf(std::string_view text, std::size_t byte) {
  const std::string_view before = text.substr(0, std::min(byte == 0 ? 0 : byte - 1, text.size()));
  const auto line = std::count(before.begin(), before.end(), '\n') + 1;
  const std::size_t lineStart = before.rfind('\n') + 1;
  return "line " + std::to_string(line) + ", column " +
         std::to_string(before.size() - lineStart + 1);
}

/// Parses, refusing what the parser would let pass: a member given twice, endless nesting.
json ParseJson(std::string_view text) {
  std::vector<std::set<std::string>> names;
  const auto check = [&names](int depth, json::parse_event_t event, const json& parsed) {
    if (depth > kMostLevels) throw ScenarioError("more than 16 levels of nesting");
    if (event == json::parse_event_t::object_start) {
      names.emplace_back();
    } else if (event == json::parse_event_t::object_end) {
      names.pop_back();
    } else if (event == json::parse_event_t::key &&
               !names.back().insert(parsed.get<std::string>()).second) {
      throw ScenarioError("the member " + parsed.get<std::string>() + " is there twice");
    }
    return true;
  };
  try {
    return json::parse(text, check);
  } catch (const json::parse_error& error) {
    const std::string_view what = error.what();
    const std::size_t reason = what.find(": ");
    throw ScenarioError(PlaceOf(text, error.byte) + ": no JSON: " +
                        std::string(reason == what.npos ? what : what.substr(reason + 2)));
  } catch (const json::out_of_range& error) {
    throw ScenarioError(std::string("a number is too large: ") + error.what());
  }
}

/// What a scenario starts from; its one adapter is what every adapter starts from.
Scenario Defaults() {
  Scenario scenario;
  const json value = ParseJson(embedded::scenario_defaults());
  ReadScenario({value}, Adapter{}, scenario);
  return scenario;
}

}  // namespace

Scenario ParseScenario(std::string_view text, const std::string& file) {
  Scenario scenario = Defaults();
  const Adapter adapter = scenario.adapters.front();
  scenario.adapters.clear();
  scenario.platform.adapters.clear();
  try {
    const json value = ParseJson(text);
    ReadScenario({value}, adapter, scenario);
  } catch (const ScenarioError& error) {
    throw ScenarioError(file + ": " + error.what());
  }
  return scenario;
}

Scenario LoadScenario(const std::string& path, const std::string& name) {
  if (path.empty()) return ParseScenario(embedded::default_scenario(), "compiled-in scenario");
  const std::string& shown = name.empty() ? path : name;
  try {
    const std::string text = ReadTextFile(path, shown);
    if (text.empty()) throw ScenarioError(shown + ": it is empty");
    return ParseScenario(text, shown);
  } catch (const FileError& error) {
    throw ScenarioError(error.what());
  }
}

std::optional<Scenario> ScenarioOfEnvironment() {
  try {
    return LoadScenario(platform::EnvironmentText("WIFI_SCENARIO").value_or(""));
  } catch (const ScenarioError& error) {
    OutputDebugStringA((std::string(error.what()) + "\n").c_str());
    return std::nullopt;
  }
}

PlatformObjects LoadPlatformObjects(const std::string& path, const std::string& name) {
  return LoadScenario(path, name).platform;
}

}  // namespace simulator
