#include "scenario/from_recording.h"

#include <algorithm>

#include "scenario/from_dump.h"
#include "scenario/json.h"
#include "scenario/recording.h"
#include "scenario/scenario.h"
#include "scenario/time_text.h"

namespace simulator {
namespace {

using Json = nlohmann::ordered_json;

constexpr const char* kFaultsPath = "faults";
/// What can change while a machine plays.
constexpr const char* kSections[] = {"apiVersion", "settings", "policies",
                                     "adapters",   "profiles", kFaultsPath};

Json ChangeableOf(const Json& scenario) {
  Json sections = {{kFaultsPath, Json::array()}};
  for (const char* section : kSections) {
    if (scenario.contains(section)) sections[section] = scenario[section];
  }
  return sections;
}

std::string PathBelow(const std::string& path, const std::string& name) {
  return path.empty() ? name : path + "/" + name;
}

const Json* FindMember(const Json* object, const std::string& name) {
  if (object == nullptr || !object->is_object()) return nullptr;
  const auto found = object->find(name);
  return found == object->end() ? nullptr : &*found;
}

bool AreEntries(const Json& before, const Json& after) {
  return before.is_array() && after.is_array() && before.size() == after.size() &&
         std::ranges::all_of(after, [](const Json& entry) { return entry.is_object(); });
}

/// Collects in `set` the members at and below `path` that differ, as a step of a timeline names
/// them. A member that only `before` has stays: a fault keeps what it belongs to from being shown.
void Compare(const std::string& path, const Json& before, const Json& after, Json& set) {
  if (before == after) return;
  // A fault that replaces another has none of its members.
  if (path != kFaultsPath && AreEntries(before, after)) {
    for (std::size_t index = 0; index < after.size(); ++index) {
      Compare(PathBelow(path, std::to_string(index)), before[index], after[index], set);
    }
    return;
  }
  if (!before.is_object() || !after.is_object()) {
    set[path] = after;
    return;
  }
  for (const auto& [name, member] : after.items()) {
    const Json* old = FindMember(&before, name);
    if (old == nullptr) {
      set[PathBelow(path, name)] = member;
    } else {
      Compare(PathBelow(path, name), *old, member, set);
    }
  }
}

/// Whether both scenarios have the same adapters and as many profiles: a machine that plays cannot
/// change those.
bool AreOfOneMachine(const Json& before, const Json& after) {
  const Json& left = before.at("adapters");
  const Json& right = after.at("adapters");
  const auto isSame = [](const Json& one, const Json& other) {
    return std::ranges::all_of(
        std::initializer_list<const char*>{"mac", "number", "present"},
        [&](const char* name) { return one.value(name, Json()) == other.value(name, Json()); });
  };
  if (!std::ranges::equal(left, right, isSame)) return false;
  for (const std::string_view store : kProfileStores) {
    const auto count = [&store](const Json& scenario) {
      const Json* profiles = FindMember(FindMember(&scenario, "profiles"), std::string(store));
      return profiles == nullptr ? 0 : profiles->size();
    };
    if (count(before) != count(after)) return false;
  }
  return true;
}

Json TimeOf(std::int64_t milliseconds) {
  if (milliseconds % 1000 == 0) return milliseconds / 1000;
  return std::to_string(milliseconds) + "ms";
}

}  // namespace

ScenarioOfCapture ScenarioFromRecording(std::string_view text, const std::string& source) {
  RecordingReader recording(text);
  if (!recording.Next()) throw ScenarioError(source + ": it is no recording");
  const std::int64_t begin = recording.time();
  const auto machineOf = [&](std::vector<std::string>* remarks) {
    ScenarioOfCapture made = ScenarioFromDump(recording.dump().dump(), source);
    if (remarks != nullptr) *remarks = std::move(made.remarks);
    return Json::parse(made.json);
  };
  ScenarioOfCapture result;
  Json scenario = machineOf(&result.remarks);
  Json steps = Json::array();
  Json before = scenario;
  while (recording.Next()) {
    if (!recording.IsChanged()) continue;
    const Json after = machineOf(nullptr);
    if (recording.time() < begin || !AreOfOneMachine(before, after)) {
      result.remarks.push_back(source + ": the sample of " + MomentText(recording.time()) +
                               " is left out: it has other adapters or profiles, or is earlier "
                               "than the first");
      continue;
    }
    Json set = Json::object();
    Compare("", ChangeableOf(before), ChangeableOf(after), set);
    if (!set.empty()) steps.push_back({{"at", TimeOf(recording.time() - begin)}, {"set", set}});
    before = after;
  }
  if (recording.skipped() > 0) {
    result.remarks.push_back(source + ": " + std::to_string(recording.skipped()) +
                             " lines are no samples and are left out");
  }
  auto& madeOf = scenario["madeOf"]["source"].get_ref<std::string&>();
  constexpr std::string_view kOfDump = "a dump";
  if (madeOf.starts_with(kOfDump)) madeOf.replace(0, kOfDump.size(), "a recording");
  scenario["timeline"] = {{"steps", std::move(steps)}};
  result.json = scenario.dump(2) + "\n";
  return result;
}

}  // namespace simulator
