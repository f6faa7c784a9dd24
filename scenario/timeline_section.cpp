#include <map>

#include "scenario/change.h"
#include "scenario/sections.h"
#include "scenario/time_text.h"

namespace simulator {
namespace {

/// The last number that the steps so far give to each member.
using KnownNumbers = std::map<std::string, TimelineChange::Ramp>;

std::int64_t ReadDuration(const Node& node) {
  const std::int64_t duration = ReadTime(node);
  if (duration == 0) node.Fail("expected more than no time");
  return duration;
}

std::int64_t ReadMoment(const Node& node) {
  const auto moment = ParseMoment(node.Text());
  if (!moment) node.FailExpecting("a moment in UTC such as \"2026-11-24T09:00:00Z\"");
  return *moment;
}

std::string PathOf(std::string_view name) {
  return std::string(name.substr(name.starts_with('/') ? 1 : 0));
}

void ReadSets(const Node& node, std::int64_t at, KnownNumbers& numbers, Timeline& timeline) {
  for (const auto& [name, value] : node.Object().items()) {
    const std::string path = PathOf(name);
    timeline.changes.push_back({at, path, value.dump(), std::nullopt});
    numbers.erase(path);
    if (value.is_number_integer()) {
      const auto number = value.get<std::int64_t>();
      numbers[path] = {at, number, number};
    }
  }
}

void ReadRamps(const Node& node, std::int64_t at, KnownNumbers& numbers, Timeline& timeline) {
  for (const auto& [name, value] : node.Object().items()) {
    const Node member = node.Child(value, name);
    const std::string path = PathOf(name);
    const auto before = numbers.find(path);
    if (before == numbers.end()) member.Fail("no earlier step gives this member a number");
    TimelineChange::Ramp ramp = before->second;
    ramp.last = member.Number(std::numeric_limits<std::int32_t>::min(), kAllBits);
    before->second = {at, ramp.last, ramp.last};
    timeline.changes.push_back({at, path, std::to_string(ramp.last), ramp});
  }
}

/// Reads a step, which begins no earlier than the changes before it.
void ReadStep(const Node& node, KnownNumbers& numbers, Timeline& timeline) {
  std::int64_t at = 0;
  if (!node.Object().contains("at")) node.Fail("the member at is missing");
  node.EachMember(
      {{"at",
        [&](const Node& member) {
          at = ReadTime(member);
          if (!timeline.changes.empty() && at < timeline.changes.back().at) {
            member.Fail("it is earlier than the step before");
          }
          if (timeline.repeat && at >= *timeline.repeat) {
            member.Fail("the timeline begins again before");
          }
        }},
       {"set", [&](const Node& member) { ReadSets(member, at, numbers, timeline); }},
       {"ramp", [&](const Node& member) { ReadRamps(member, at, numbers, timeline); }}});
}

}  // namespace

std::int64_t ReadTime(const Node& node) {
  constexpr std::int64_t kMostSeconds = 315'619'200;  // ten years
  if (node.value.is_number()) return 1000 * node.Number(0, kMostSeconds);
  const auto time = node.value.is_string() ? ParseDuration(node.Text()) : std::nullopt;
  if (!time) node.FailExpecting("a time such as \"1m30s\", or a number of seconds");
  return *time;
}

Timeline ReadTimeline(const Node& node) {
  Timeline timeline;
  KnownNumbers numbers;
  node.EachMember({{"start", [&](const Node& member) { timeline.start = ReadMoment(member); }},
                   {"repeat", [&](const Node& member) { timeline.repeat = ReadDuration(member); }},
                   {"steps", [&](const Node& member) {
                      member.EachElement(
                          [&](const Node& step) { ReadStep(step, numbers, timeline); });
                    }}});
  return timeline;
}

void CheckTimeline(const Scenario& scenario) {
  if (scenario.timeline.changes.empty()) return;
  Scenario tried = scenario;
  const auto adapterAt = [&tried](std::size_t index) {
    return index < tried.adapters.size() ? &tried.adapters[index] : nullptr;
  };
  for (const TimelineChange& change : scenario.timeline.changes) {
    try {
      ChangeMember(change.path, change.value, adapterAt, tried);
    } catch (const ScenarioError& error) {
      throw ScenarioError("/timeline: the step at " + std::to_string(change.at) +
                          " ms: " + error.what());
    }
  }
}

}  // namespace simulator
