#include "host/cli/by_name.h"

#include <cstddef>
#include <set>
#include <utility>
#include <vector>

#include "host/model/dump.h"
#include "host/service/cim_object.h"
#include "platform/text.h"

namespace host {
namespace {

/// Each request of a list's entry reads the whole list, so no more than this many are made.
constexpr std::size_t kMostAsked = 500;

/// A property that names entries of the lists with this key, the most likely ones first.
struct NameRow {
  const char* listKey;
  const char* className;
  const char* property;
};
constexpr NameRow kNames[] = {
    {"MacAddress", "WiFi_AdapterAssocStats", "ApMacAddr"},
    {"MacAddress", "WiFi_AdapterCachedScanList", "MacAddress"},
    {"MacAddress", "WiFi_AvailableNetwork", "MacAddress"},
    {"NetworkName", "WiFi_AdapterAssociationInfo", "SSID"},
    {"NetworkName", "WiFi_AdapterCachedScanList", "NetworkName"},
    {"NetworkName", "WiFi_AvailableNetwork", "NetworkName"},
};

using KeyValues = std::vector<std::pair<std::string, std::string>>;

std::string PathWith(const ClassInfo& info, const KeyValues& keys) {
  CimObject instance(info);
  for (const auto& [name, text] : keys) {
    const auto property = info.FindProperty(name);
    if (!property) return "";
    instance.Put(*property, platform::Variant::Text(platform::WideFromUtf8(text)).get());
  }
  return instance.RelativePath().value_or("");
}

/// The key of a list's entries within an adapter.
std::string ListKeyOf(const ClassInfo& info, std::string_view adapterKey) {
  for (const PropertyDeclaration& property : info.declaration.properties) {
    if (property.qualifiers.Flag("key") && property.name != adapterKey) return property.name;
  }
  return "";
}

/// The paths of entries of adapters after the one at which the enumeration ended.
std::vector<std::string> ListPaths(const ClassInfo& info, const char* adapterKey,
                                   const Dump& dump) {
  const std::string listKey = ListKeyOf(info, adapterKey);
  const std::string last = dump.EndedAt(info.name());
  std::vector<std::string> paths;
  std::set<std::pair<std::string, std::string>> named;
  for (const NameRow& row : kNames) {
    if (listKey != row.listKey || info.name() == row.className) continue;
    for (const Json& instance : dump.Rows(row.className)) {
      const std::string adapter = TextOf(instance, AdapterKeyOf(row.className));
      const auto name = instance.find(row.property);
      if (adapter <= last || name == instance.end() || !name->is_string()) continue;
      const auto& text = name->get_ref<const std::string&>();
      if (!named.emplace(adapter, text).second) continue;
      paths.push_back(PathWith(info, {{adapterKey, adapter}, {listKey, text}}));
    }
  }
  return paths;
}

std::vector<std::string> RecordPaths(const ClassInfo& info, const char* adapterKey,
                                     const Dump& dump) {
  std::vector<std::string> paths;
  for (const std::string& adapter : dump.adapters()) {
    if (!dump.Row(info.name(), adapter).empty()) continue;
    paths.push_back(PathWith(info, {{adapterKey, adapter}}));
  }
  return paths;
}

}  // namespace

Json AddByName(const Repository& repository,
               const std::function<Json(const std::string& path)>& get, Json* dump) {
  Json done = Json::object();
  // Records name entries of lists, so they are completed first.
  for (const bool lists : {false, true}) {
    std::vector<std::pair<std::string, std::vector<std::string>>> asked;  // class and paths
    {
      const Dump known(*dump);
      for (const ClassInfo* info : repository.served()) {
        const char* adapterKey = AdapterKeyOf(info->name());
        if (adapterKey == nullptr || ShowsLists(info->name()) != lists) continue;
        if (known.Status(info->name()) == S_OK) continue;
        asked.emplace_back(info->name(),
                           (lists ? ListPaths : RecordPaths)(*info, adapterKey, known));
      }
    }
    for (auto& [name, paths] : asked) {
      const std::size_t left = lists && paths.size() > kMostAsked ? paths.size() - kMostAsked : 0;
      paths.resize(paths.size() - left);
      if (paths.empty()) continue;
      std::size_t given = 0;
      for (const std::string& path : paths) {
        Json instance = get(path);
        if (instance.is_null()) continue;
        (*dump)[name].push_back(std::move(instance));
        ++given;
      }
      done[name] = {{"Asked", paths.size()}, {"Given", given}};
      if (left > 0) done[name]["Left"] = left;
    }
  }
  return done;
}

}  // namespace host
