#include "scenario/change.h"

#include <algorithm>
#include <charconv>

#include "scenario/sections.h"

namespace simulator {
namespace {

using nlohmann::json;
using Path = std::vector<std::string>;

constexpr const char* kFaults = "faults";

Path CutPath(const std::string& text) {
  Path path;
  std::size_t start = text.starts_with('/') ? 1 : 0;
  while (start <= text.size()) {
    const std::size_t slash = std::min(text.find('/', start), text.size());
    path.push_back(text.substr(start, slash - start));
    start = slash + 1;
  }
  return path;
}

/// One change: how to apply it at the place, the value, and how much of the path has been followed.
struct Change {
  Path path;
  json value;

  std::string Place(std::size_t depth) const {
    std::string place;
    for (std::size_t index = 0; index < depth; ++index) place = PlaceBelow(place, path[index]);
    return place;
  }
  [[noreturn]] void Fail(std::size_t depth, const std::string& problem) const {
    Node{value, Place(depth)}.Fail(problem);
  }
  /// The index at a place of the path, below `size`.
  std::size_t Index(std::size_t depth, std::size_t size) const {
    const std::string text = depth < path.size() ? path[depth] : "";
    std::size_t index = 0;
    const auto [stop, error] = std::from_chars(text.data(), text.data() + text.size(), index);
    if (text.empty() || error != std::errc() || stop != text.data() + text.size() ||
        index >= size) {
      Fail(depth + (depth < path.size() ? 1 : 0),
           size == 0 ? "there are no entries"
                     : "expected the number of an entry, 0 to " + std::to_string(size - 1));
    }
    return index;
  }
  /// The value nested in the objects that the path names from `depth` on.
  json Nested(std::size_t depth) const {
    json nested = value;
    for (std::size_t index = path.size(); index > depth; --index) {
      nested = json::object({{path[index - 1], nested}});
    }
    return nested;
  }
};

void ChangeEntry(const Change& change, std::size_t depth, const Table& table, void* entry) {
  if (change.path.size() <= depth) change.Fail(depth, "a member of the entry is to be named");
  const json nested = change.Nested(depth);
  ReadRecord({nested, change.Place(depth)}, table, entry);
}

void ChangeAdapter(const Change& change, const AdapterAt& adapterAt) {
  std::size_t count = 0;
  while (adapterAt && adapterAt(count) != nullptr) ++count;
  Adapter* adapter = adapterAt(change.Index(1, count));
  if (change.path.size() < 3) change.Fail(2, "a member of the adapter is to be named");
  const std::string& member = change.path[2];
  if (member == "number" || member == "mac" || member == "present") {
    change.Fail(3, "it is seen only when the machine starts: change the file, then reload");
  }
  const std::pair<const char*, std::pair<RecordList Adapter::*, const Table*>> lists[] = {
      {"cachedNetworks", {&Adapter::cachedNetworks, &kNetworkTable}},
      {"availableNetworks", {&Adapter::availableNetworks, &kNetworkTable}},
      {"excludeList", {&Adapter::excludeList, &kExcludeEntryTable}}};
  const auto list =
      std::ranges::find_if(lists, [&member](const auto& row) { return row.first == member; });
  if (list == std::end(lists)) {
    Adapter changed{adapter->records, {}, {}, {}};
    const json nested = change.Nested(2);
    ReadAdapter({nested, change.Place(2)}, changed);
    adapter->records = changed.records;
    return;
  }
  const auto& [records, table] = list->second;
  Adapter changed{};
  if (change.path.size() > 3) {
    changed.*records = adapter->*records;
    const std::size_t index = change.Index(3, (changed.*records).size() / table->size);
    ChangeEntry(change, 4, *table, (changed.*records).entries() + index * table->size);
  } else {
    const json nested = change.Nested(2);
    ReadAdapter({nested, change.Place(2)}, changed);
  }
  adapter->*records = std::move(changed.*records);
}

void ChangeProfile(const Change& change, Scenario& scenario) {
  const auto store =
      std::ranges::find(kProfileStores, change.path.size() < 2 ? "" : change.path[1]);
  if (store == kProfileStores.end()) {
    change.Fail(change.path.size(), "expected one of " + Join(kProfileStores));
  }
  auto& profiles = scenario.profiles[static_cast<std::size_t>(store - kProfileStores.begin())];
  ProfileRecord& profile = profiles[change.Index(2, profiles.size())];
  ProfileRecord changed = profile;
  ChangeEntry(change, 3, kProfileTable, &changed);
  profile = changed;
}

void ChangeFaults(const Change& change, const AdapterAt& adapterAt, Scenario& scenario) {
  AdapterNumbers numbers;
  for (std::size_t index = 0; adapterAt && adapterAt(index) != nullptr; ++index) {
    numbers.push_back(adapterAt(index)->records.number);
  }
  const AdapterNumbers* adapters = adapterAt ? &numbers : nullptr;
  std::vector<Fault> faults = scenario.faults;
  if (change.path.size() == 1) {
    faults = ReadFaults({change.value, change.Place(1)}, adapters);
  } else {
    const bool isWhole = change.path.size() == 2;
    const std::size_t index = change.Index(1, faults.size() + (isWhole ? 1 : 0));
    if (index == faults.size()) faults.emplace_back();
    if (isWhole) faults[index] = {};
    faults[index].index = index;
    const json nested = change.Nested(2);
    ReadFault({nested, change.Place(2)}, adapters, faults[index]);
  }
  scenario.faults = std::move(faults);
}

void Apply(const Change& change, const AdapterAt& adapterAt, Scenario& scenario) {
  const std::string& section = change.path.front();
  if (section == "adapters") return ChangeAdapter(change, adapterAt);
  if (section == "profiles") return ChangeProfile(change, scenario);
  if (section == kFaults) return ChangeFaults(change, adapterAt, scenario);
  if (section != "settings" && section != "policies" && section != "apiVersion") {
    change.Fail(1,
                "it cannot be changed while the machine plays; adapters, settings, policies, "
                "profiles, faults and apiVersion can");
  }
  Scenario changed = scenario;
  const json nested = change.Nested(0);
  ReadScenario({nested}, changed);
  scenario.settings = changed.settings;
  scenario.policies = changed.policies;
  scenario.apiVersion = changed.apiVersion;
}

}  // namespace

bool Plays(Player player, std::string_view path) {
  const std::string_view section = path.substr(path.starts_with('/') ? 1 : 0);
  if (section.starts_with(kFaults)) return true;
  return (player == Player::kProfileLibrary) == section.starts_with("profiles");
}

bool ChangeMember(const std::string& path, const std::string& value, const AdapterAt& adapterAt,
                  Scenario& scenario) {
  Change change{CutPath(path), json::parse(value, nullptr, false)};
  const bool isJson = !change.value.is_discarded();
  if (!isJson) change.value = value;
  const bool isOfFaults = change.path.front() == kFaults;
  try {
    Apply(change, adapterAt, scenario);
    return isOfFaults;
  } catch (const ScenarioError&) {
    // A text may look like a number, for example the name of a network.
    if (!isJson || change.value.is_string() || change.value.is_structured()) throw;
  }
  const json number = std::exchange(change.value, value);
  try {
    Apply(change, adapterAt, scenario);
  } catch (const ScenarioError&) {
    change.value = number;
    Apply(change, adapterAt, scenario);  // throws with what is wrong with the typed value
  }
  return isOfFaults;
}

}  // namespace simulator
