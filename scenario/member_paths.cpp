#include "scenario/member_paths.h"

#include <algorithm>
#include <charconv>

#include "scenario/fields.h"
#include "scenario/scenario.h"

namespace simulator {
namespace {

using PathSteps = std::vector<std::string_view>;
using NameList = std::vector<std::string>;

struct ListMember {
  std::string_view name;
  RecordList Adapter::*list;
  const Table* table;
};
constexpr ListMember kListMembers[] = {
    {"cachedNetworks", &Adapter::cachedNetworks, &kNetworkTable},
    {"availableNetworks", &Adapter::availableNetworks, &kNetworkTable},
    {"excludeList", &Adapter::excludeList, &kExcludeEntryTable}};
/// Members that are read only when a machine starts.
constexpr std::string_view kFixedMembers[] = {"number", "mac", "present"};

std::size_t EntryNumber(std::string_view text) {
  std::size_t index = static_cast<std::size_t>(-1);
  std::from_chars(text.data(), text.data() + text.size(), index);
  return index;
}

NameList Numbers(std::size_t count, const char* end) {
  NameList numbers;
  for (std::size_t index = 0; index < count; ++index)
    numbers.push_back(std::to_string(index) + end);
  return numbers;
}

template <class Values>
NameList Keys(const Values& values) {
  NameList keys;
  for (const auto& [key, value] : values) keys.push_back(std::to_string(key) + "=");
  return keys;
}

NameList MembersOf(const Table& table) {
  NameList members;
  for (const Field& field : table.fields) {
    members.push_back(std::string(field.name) + (field.kind == Kind::kRecord ? "/" : "="));
  }
  return members;
}

const Field* MemberField(const Table& table, std::string_view name) {
  const auto field = std::ranges::find(table.fields, name, &Field::name);
  return field == table.fields.end() ? nullptr : &*field;
}

/// The table of the members below a path; null if there is none.
const Table* TableBelow(const PathSteps& path) {
  if (path.size() == 3 && path[0] == "profiles") return &kProfileTable;
  if (path.size() < 2 || path[0] != "adapters") return nullptr;
  if (path.size() == 2) return &kAdapterTable;
  const auto* list = std::ranges::find(kListMembers, path[2], &ListMember::name);
  if (list != std::end(kListMembers)) return path.size() == 4 ? list->table : nullptr;
  const Table* table = &kAdapterTable;
  for (std::size_t depth = 2; depth < path.size() && table != nullptr; ++depth) {
    const Field* field = MemberField(*table, path[depth]);
    table = field == nullptr ? nullptr : field->record;
  }
  return table;
}

NameList Below(const PathSteps& path, const Scenario& scenario) {
  if (path.empty()) {
    return {"adapters/", "apiVersion=", "faults/", "policies/", "profiles/", "settings/"};
  }
  if (const Table* table = TableBelow(path)) {
    NameList members = MembersOf(*table);
    if (table != &kAdapterTable) return members;
    std::erase_if(members, [](const std::string& member) {
      return std::ranges::any_of(kFixedMembers, [&](std::string_view name) {
        return std::string_view(member).substr(0, member.size() - 1) == name;
      });
    });
    for (const ListMember& row : kListMembers) members.push_back(std::string(row.name) + "/");
    return members;
  }
  const std::string_view section = path[0];
  if (path.size() == 1) {
    if (section == "adapters") return Numbers(scenario.adapters.size(), "/");
    if (section == "faults") return Numbers(scenario.faults.size(), "/");
    if (section == "settings") return Keys(scenario.settings);
    if (section == "policies") return Keys(scenario.policies);
    NameList stores;
    if (section != "profiles") return stores;
    for (const std::string_view store : kProfileStores) stores.push_back(std::string(store) + "/");
    return stores;
  }
  if (section == "faults" && path.size() == 2) {
    return {"operation=", "adapter=", "status=", "exception=", "structured=", "times=",
            "after=",     "delayMs=", "output=", "from=",      "until="};
  }
  if (section == "profiles" && path.size() == 2) {
    const auto* store = std::ranges::find(kProfileStores, path[1]);
    if (store == kProfileStores.end()) return {};
    return Numbers(
        scenario.profiles[static_cast<std::size_t>(store - kProfileStores.begin())].size(), "/");
  }
  if (section == "adapters" && path.size() == 3 &&
      EntryNumber(path[1]) < scenario.adapters.size()) {
    const auto* list = std::ranges::find(kListMembers, path[2], &ListMember::name);
    if (list == std::end(kListMembers)) return {};
    return Numbers(
        (scenario.adapters[EntryNumber(path[1])].*(list->list)).size() / list->table->size, "/");
  }
  return {};
}

}  // namespace

std::vector<std::string> MemberPaths(std::string_view typed, const Scenario& scenario) {
  const std::size_t equals = typed.find('=');
  std::string_view rest = typed.substr(0, equals);
  const std::size_t slash = rest.rfind('/');
  const std::string_view last = rest.substr(slash == rest.npos ? 0 : slash + 1);
  const std::string_view parent = rest.substr(0, rest.size() - last.size());
  PathSteps path;
  for (std::string_view left = parent; !left.empty();) {
    path.push_back(left.substr(0, left.find('/')));
    left.remove_prefix(path.back().size() + 1);
  }
  if (!path.empty() && path[0].empty()) path.erase(path.begin());
  NameList words;
  if (equals == typed.npos) {
    words = Below(path, scenario);
    for (std::string& word : words) word.insert(0, parent);
    return words;
  }
  const Table* table = TableBelow(path);
  const Field* field = table == nullptr ? nullptr : MemberField(*table, last);
  if (field == nullptr) return words;
  const std::string begin = std::string(rest) + "=";
  if (field->kind == Kind::kFlag) return {begin + "true", begin + "false"};
  for (const Name& name : field->names) words.push_back(begin + std::string(name.text));
  return words;
}

}  // namespace simulator
