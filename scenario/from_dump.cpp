#include "scenario/from_dump.h"

#include <algorithm>
#include <cctype>
#include <functional>
#include <map>
#include <optional>
#include <set>
#include <span>
#include <unordered_map>

#include "adapterapi/codes.h"
#include "scenario/dump_text.h"
#include "scenario/dump_turn.h"
#include "scenario/dump_value.h"
#include "scenario/hex.h"
#include "scenario/scenario.h"

namespace simulator {
namespace {

using nlohmann::json;
using Json = nlohmann::ordered_json;
using Instances = std::vector<json>;

constexpr const char* kAdapterClass = "WiFi_NetworkAdapter";
constexpr const char* kDescriptionClass = "WiFi_NetworkAdapterConfiguration";
constexpr const char* kPoliciesClass = "WiFi_SystemPolicies";
constexpr const char* kNotShown = "no instance was shown";
constexpr std::string_view kPowershellMembers[] = {"CimClass", "CimInstanceProperties",
                                                   "CimSystemProperties", "PSComputerName"};

std::string TextIn(const json& instance, std::string_view property) {
  const auto found = instance.find(property);
  return found != instance.end() && found->is_string() ? found->get<std::string>() : "";
}

/// Whether a member is a property of the class.
bool IsProperty(std::string_view name) {
  return !name.starts_with("__") &&
         std::ranges::find(kPowershellMembers, name) == std::end(kPowershellMembers);
}

/// Instances of a class; null if the class is not in the dump.
const Instances* Find(const Dump& dump, std::string_view className) {
  const auto found = dump.find(className);
  return found == dump.end() ? nullptr : &found->second;
}

class Maker {
 public:
  Maker(const Dump& dump, const std::string& source) : dump_(dump), source_(source) {}

  ScenarioOfCapture Make() {
    CollectKeys();
    Json scenario = Json::object();
    scenario["madeOf"] = nullptr;  // written last, and read first
    for (const json& origin : InstancesOf("wmihost")) {
      const std::string version = TextIn(origin, "LibraryVersion");
      if (version.starts_with("0x")) scenario["apiVersion"] = version;
    }
    scenario["platform"] = {{"osVersion", OsVersion()}, {"networkAdapters", Json::array()}};
    Json adapters = Json::array();
    for (const std::string& key : keys_) {
      adapters.push_back(AdapterOf(key, adapters.size() + 1));
      scenario["platform"]["networkAdapters"].push_back(PlatformAdapterOf(key, adapters.back()));
    }
    scenario["settings"] = Json::object();
    scenario["policies"] = Json::object();
    AddPolicies(scenario);
    scenario["adapters"] = std::move(adapters);
    AddProfiles(scenario);
    AddStartFailure();
    if (!faults_.empty()) scenario["faults"] = faults_;
    for (const RecordRow& row : kRecordClasses) SayIfMissing(row.className);
    for (const ListRow& row : kListClasses) SayIfMissing(row.className);
    SayIfMissing(kProfileClass.className);
    Say("what no class shows has its default: adapters that are not served, the user, the feature "
        "settings, settings 415 and 416, rogueApCount, tcpIpBound, supported, excludeListEnabled");
    scenario["madeOf"] = MadeOf();
    ScenarioOfCapture made = {scenario.dump(2) + "\n", {}};
    for (const auto& [remark, count] : remarks_) {
      const std::string more = count == 1 ? "" : " (" + std::to_string(count) + " times)";
      made.remarks.push_back(source_ + ": " + remark + more);
    }
    return made;
  }

 private:
  void Say(const std::string& remark) {
    const auto [place, isNew] = remarkPlaces_.try_emplace(remark, remarks_.size());
    if (isNew) remarks_.emplace_back(remark, 0);
    ++remarks_[place->second].second;
  }
  void SayIfMissing(const std::string& className) {
    if (Find(dump_, className) != nullptr) return;
    Say("there is no " + className + ": it has its defaults");
    invented_.push_back(className);
  }

  /// What the scenario is made of, as far as the dump says it, and what it cannot know.
  Json MadeOf() const {
    Json madeOf = {{"source", "a dump, " + FileNameOf(source_)}};
    Json invented = invented_;
    for (const json& origin : InstancesOf("wmihost")) {
      const auto stated = origin.find("Source");
      if (stated == origin.end() || !stated->is_object()) continue;
      const std::string computer = TextIn(*stated, "Computer");
      const std::string name = TextIn(*stated, "Name");
      std::string& source = madeOf["source"].get_ref<std::string&>();
      if (!computer.empty() || !name.empty())
        source += ", of " + (computer.empty() ? name : computer);
      if (const auto told = stated->find("Told"); told != stated->end()) madeOf["told"] = *told;
      if (const auto before = stated->find("Invented"); before != stated->end()) {
        for (const json& each : *before) invented.push_back(Json(each));
      }
    }
    if (!invented.empty()) madeOf["invented"] = std::move(invented);
    return madeOf;
  }

  /// A start without a table of adapters fails with what the library answered.
  void AddStartFailure() {
    for (const json& origin : InstancesOf("wmihost")) {
      const std::string status = TextIn(origin, "StartStatus");
      if (!status.starts_with("0x") || status == "0x00000000") continue;
      if (keys_.empty()) {
        faults_.push_back({{"operation", "GetAdapterList"}, {"status", status}});
      } else {
        Say("the provider's start failed with " + status + ", which the scenario does not repeat");
      }
    }
  }

  const Instances& InstancesOf(std::string_view className) const {
    static const Instances none;
    const Instances* found = Find(dump_, className);
    return found == nullptr ? none : *found;
  }
  /// The instances of a class that are this adapter's.
  std::span<const json* const> InstancesOf(std::string_view className,
                                           const std::string& deviceId) const {
    const auto ofClass = byAdapter_.find(className);
    if (ofClass == byAdapter_.end()) return {};
    const auto found = ofClass->second.find(deviceId);
    if (found == ofClass->second.end()) return {};
    return found->second;
  }
  const json* InstanceOf(std::string_view className, const std::string& deviceId) const {
    const auto all = InstancesOf(className, deviceId);
    return all.empty() ? nullptr : all.front();
  }

  /// The device ids of all adapters that any class shows, and the instances of each.
  void CollectKeys() {
    std::set<std::string> known;
    const auto collect = [&](const std::string& className, const char* key) {
      auto& ofClass = byAdapter_[className];
      for (const json& instance : InstancesOf(className)) {
        const std::string text = TextIn(instance, key);
        ofClass[text].push_back(&instance);
        if (!text.empty() && known.insert(text).second) keys_.push_back(text);
      }
    };
    for (const RecordRow& row : kRecordClasses) collect(row.className, row.key);
    for (const ListRow& row : kListClasses) collect(row.className, "SettingID");
    collect(kDescriptionClass, "SettingID");
    if (keys_.empty()) Say("no class shows an adapter");
  }

  /// The version in the dump, else the older of the two systems that the dump may come from.
  std::string OsVersion() const {
    for (const json& origin : InstancesOf("wmihost")) {
      std::string version = TextIn(origin, "OsVersion");
      if (ParseOsVersion(version)) return version;
    }
    for (const json& adapter : InstancesOf(kAdapterClass)) {
      if (!adapter.contains("RegistrationState")) return "6.1";
    }
    return "5.1";
  }

  /// The address in the device record, else an invented one.
  std::string AddressOf(const std::string& key, std::size_t number) {
    const json* device = InstanceOf("WiFi_AdapterDevice", key);
    std::string address = device == nullptr ? "" : TextIn(*device, "MacAddress");
    for (char& letter : address) letter = static_cast<char>(std::toupper(letter));
    std::string unused;
    const bool isAddress = MemberOf(address, *FieldNamed(kAdapterTable, "mac"), unused).has_value();
    if (isAddress && addresses_.insert(address).second) return address;
    std::string own = "02:00:00:00:" + UpperHex(static_cast<std::uint32_t>(number) >> 8, 2) + ":" +
                      UpperHex(static_cast<std::uint32_t>(number) & 0xFF, 2);
    Say("adapter " + key + (isAddress ? " has the address of another: " : " shows no address: ") +
        own + " is taken");
    invented_.push_back("WiFi_AdapterDevice.MacAddress of " + key);
    addresses_.insert(own);
    return own;
  }

  void Turn(const std::string& className, const json& instance, std::string_view key,
            std::span<const PropertyRow> rows, const Table& table, Json& target) {
    for (const auto& [property, value] : instance.items()) {
      if (property == key || !IsProperty(property)) continue;
      const std::string problem = TurnBack(property, value, rows, table, target);
      if (!problem.empty()) Say(className + "." + property + ": " + problem);
    }
  }

  void Fail(const char* operation, std::size_t number, const char* kind, const Json& value) {
    faults_.push_back({{"operation", operation}, {"adapter", number}, {kind, value}});
  }

  /// Whether the dump says that the enumeration of the class failed, other than with an empty list.
  bool Failed(const std::string& className) const {
    constexpr std::string_view kNotFound = " 0x80041002";
    for (const json& origin : InstancesOf("wmihost")) {
      for (const json& failure : origin.value("Failures", json::array())) {
        if (!failure.is_string()) continue;
        const auto& text = failure.get_ref<const std::string&>();
        if (text.starts_with(className + " ") && !text.ends_with(kNotFound)) return true;
      }
    }
    return false;
  }

  bool WasAskedByName() const {
    return std::ranges::any_of(InstancesOf("wmihost"),
                               [](const json& origin) { return origin.contains("ByName"); });
  }

  void AddRecord(const RecordRow& row, const std::string& key, std::size_t number, Json& adapter) {
    if (Find(dump_, row.className) == nullptr) return;
    const json* instance = InstanceOf(row.className, key);
    if (instance == nullptr) {
      // A walk over the adapters ends here: the later ones were not read, unless by name.
      if (!ended_.insert(row.className).second && !WasAskedByName()) return;
      Say(std::string(row.className) + " has no instance of adapter " + key +
          ": its call is to fail");
      if (row.unguarded) return Fail(row.operation, number, "exception", kNotShown);
      return Fail(row.operation, number, "status", "0x80004005");
    }
    const Table* table = &kAdapterTable;
    Json record = Json::object();
    if (row.record != nullptr) table = FieldNamed(kAdapterTable, row.record)->record;
    Turn(row.className, *instance, row.key, row.properties, *table, record);
    if (row.record == nullptr) {
      adapter.update(record);
    } else if (!record.empty()) {
      adapter[row.record].update(record);  // which several classes may show
    } else if (std::ranges::none_of(instance->items(), [&](const auto& item) {
                 return item.key() != row.key && IsProperty(item.key());
               })) {
      constexpr int kShownWithoutRecord = 3;
      Say(std::string(row.className) + " shows nothing of adapter " + key +
          ": its call is to fail");
      Fail(row.operation, number, "status", kShownWithoutRecord);
    }
  }

  /// The access point's address is in another class than its association.
  void AddAccessPoint(const std::string& key, Json& adapter) {
    const json* statistics = InstanceOf("WiFi_AdapterAssocStats", key);
    const std::string address = statistics == nullptr ? "" : TextIn(*statistics, "ApMacAddr");
    if (address.empty() || address == "00:00:00:00:00:00") return;
    Json association = adapter.value("association", Json::object());
    if (!association.contains("opMode")) association["opMode"] = adapterapi::codes::kInfrastructure;
    association["bssid"] = address;
    adapter["association"] = association;
  }

  Json AdapterOf(const std::string& key, std::size_t number) {
    Json adapter = {{"mac", AddressOf(key, number)}};
    for (const RecordRow& row : kRecordClasses) AddRecord(row, key, number, adapter);
    AddAccessPoint(key, adapter);
    for (const ListRow& row : kListClasses) {
      Json entries = Json::array();
      for (const json* instance : InstancesOf(row.className, key)) {
        Json entry = Json::object();
        Turn(row.className, *instance, "SettingID", row.properties, row.table, entry);
        entries.push_back(std::move(entry));
      }
      if (entries.empty() && Failed(row.className) && ended_.insert(row.className).second) {
        Say(std::string(row.className) + " failed at adapter " + key + ": its call is to fail");
        Fail(row.operation, number, "exception", kNotShown);
      }
      adapter[row.member] = std::move(entries);
    }
    return adapter;
  }

  Json PlatformAdapterOf(const std::string& key, const Json& adapter) const {
    const Json device = adapter.value("device", Json::object());
    const auto hex = [&device](const char* member, std::size_t digits) {
      return UpperHex(device.value(member, 0u), digits);
    };
    Json object = {{"deviceId", key}};
    object["pnpDeviceId"] = "PCI\\VEN_7F3C&DEV_" + hex("deviceId", 4) + "&SUBSYS_" +
                            hex("subsystemId", 4) + hex("subsystemVendorId", 4) + "&REV_" +
                            hex("revisionId", 2) + "\\4&" + key;
    object["macAddress"] = adapter["mac"];
    const json* described = InstanceOf(kDescriptionClass, key);
    for (const ListRow& row : kListClasses) {
      if (described == nullptr) described = InstanceOf(row.className, key);
    }
    if (described != nullptr) {
      object["caption"] = TextIn(*described, "Caption");
      object["description"] = TextIn(*described, "Description");
    }
    return object;
  }

  /// A number or flag of the library as a whole; null, which the library does not know, if the
  /// class shows no value.
  static void AddValue(const Instances& instances, const char* property, std::uint32_t identifier,
                       Json& values) {
    if (instances.empty()) return;
    Json& value = values[std::to_string(identifier)];
    const auto found = instances.front().find(property);
    if (found == instances.front().end()) return;
    if (found->is_boolean()) {
      value = found->get<bool>() ? 1 : 0;
    } else if (const auto number = NumberIn(*found)) {
      value = static_cast<std::uint32_t>(*number);
    }
  }

  void AddPolicies(Json& scenario) {
    namespace setting = adapterapi::setting;
    const Instances& policies = InstancesOf(kPoliciesClass);
    AddValue(policies, "AutoConnect", setting::kAutoConnectPolicy, scenario["policies"]);
    AddValue(policies, "SingleBSSMode", setting::kSingleBssMode, scenario["settings"]);
    AddValue(InstancesOf(kAdapterClass), "DisableRfControl", setting::kDisableRfControl,
             scenario["settings"]);
  }

  void AddProfiles(Json& scenario) {
    Json stores = Json::object();
    for (const json& instance : InstancesOf(kProfileClass.className)) {
      const std::string store = TextIn(instance, "Type");
      const std::string name = TextIn(instance, "Name");
      if (std::ranges::find(kProfileStores, store) == kProfileStores.end() || name.empty()) {
        Say("a profile without a name or a known Type is left out");
        continue;
      }
      Json profile = Json::object();
      Turn(kProfileClass.className, instance, "Type", kProfileClass.properties, kProfileClass.table,
           profile);
      stores[store].push_back(std::move(profile));
    }
    scenario["profiles"] = std::move(stores);
  }

  const Dump& dump_;
  const std::string& source_;
  std::vector<std::string> keys_;
  /// Instances by class and adapter.
  std::map<std::string, std::unordered_map<std::string, std::vector<const json*>>, std::less<>>
      byAdapter_;
  std::vector<std::string> invented_;
  std::set<std::string> addresses_;
  std::set<std::string> ended_;  ///< classes whose walk failed
  Json faults_ = Json::array();
  std::vector<std::pair<std::string, int>> remarks_;
  std::unordered_map<std::string, std::size_t> remarkPlaces_;  ///< in remarks_
};

}  // namespace

ScenarioOfCapture ScenarioFromDump(std::string_view text, const std::string& source) {
  const Dump dump = ParseDump(text, source);
  return Maker(dump, source).Make();
}

}  // namespace simulator
