#include "host/model/adapters.h"

#include <algorithm>
#include <charconv>
#include <iterator>
#include <string_view>
#include <tuple>
#include <unordered_map>

#include "host/format/format.h"

namespace host {
namespace {

constexpr const char* kAdapterClass = "WiFi_NetworkAdapter";
constexpr const char* kAssociationClass = "WiFi_AdapterAssociationInfo";
constexpr const char* kStatisticsClass = "WiFi_AdapterAssocStats";
constexpr const char* kTrafficClass = "WiFi_AdapterTxRxStats";

struct FactRow {
  const char* label;
  const char* className;
  const char* property;
  bool onlyAssociated = false;
  const char* second = nullptr;  ///< a property that continues it
};

// In the order of AdapterFact.
constexpr FactRow kFacts[] = {
    {"Network", kAssociationClass, "SSID", true},
    {"Access point", kStatisticsClass, "ApMacAddr", true},
    {"Signal", kStatisticsClass, "Rssi", true},
    {"Channel", kAssociationClass, "Channel", true},
    {"Rate", kAssociationClass, "Rate", true},
    {"Security", kAssociationClass, "AuthenMode", true},
    {"Profile", kAssociationClass, "Profile", true},
    {"Applied last", kAdapterClass, "LastAppliedProfile"},
    {"Address", "WiFi_AdapterTcpIpSettings", "IPAddress"},
    {"Gateway", "WiFi_AdapterTcpIpSettings", "DefaultGateway"},
    {"Name servers", "WiFi_AdapterTcpIpSettings", "DNSPrim", false, "DNSSec"},
    {"MAC", "WiFi_AdapterDevice", "MacAddress"},
    {"Type", kAdapterClass, "WiFiAdapterType"},
    {"Driver", "WiFi_AdapterVersion", "Driver"},
};
static_assert(std::size(kFacts) == static_cast<std::size_t>(AdapterFact::kCount));

struct CauseRow {
  const char* label;
  const char* property;
};
constexpr CauseRow kCauses[kRoamingCauses] = {
    {"The access point did not transmit", "ApDidNotTx"},
    {"Beacons arrived badly", "PoorBeaconQuality"},
    {"To balance the load", "LoadBalancing"},
    {"The signal was weak", "LowRssi"},
    {"The channel was bad", "PoorChannelQuality"},
};

std::optional<bool> FlagOf(const Json& row, const char* property) {
  const auto found = row.find(property);
  if (found == row.end() || !found->is_boolean()) return std::nullopt;
  return found->get<bool>();
}

/// An adapter without any answer: its texts are unknown, and flags that are false tell nothing.
bool AnswersNothing(const Json& adapter) {
  constexpr const char* kTexts[] = {"WiFiAdapterType", "Band", "AssociationStatus",
                                    "AuthenticationStatus"};
  return TextOf(adapter, "SupportedRates").empty() &&
         std::ranges::all_of(kTexts, [&](const char* property) {
           return TextOf(adapter, property) == "<Unknown>";
         });
}

/// Whether a text is an address that means no address.
bool IsNoAddress(const std::string& text) {
  return text == "0.0.0.0";
}

Fact ReadFact(const FactRow& row, const Dump& dump, const Source& source, const std::string& key) {
  Fact fact;
  fact.why = dump.WhyUnknown(row.className, key);
  const Json& instance = dump.Row(row.className, key);
  for (const char* property : {row.property, row.second}) {
    if (property == nullptr) continue;
    const std::string value = TextOf(instance, property);
    if (value.empty() || value == " " || (row.second != nullptr && IsNoAddress(value))) continue;
    fact.value += (fact.value.empty() ? "" : ", ") + value;
    fact.isInvented = fact.isInvented || source.IsInvented(row.className, property, key);
  }
  if (!fact.value.empty()) fact.why.clear();
  return fact;
}

/// Both the adapter and its association tell; it is associated only if neither denies it.
std::optional<bool> Associated(const Json& adapter, const Json& association) {
  const std::optional<bool> told = FlagOf(association, "Associated");
  const std::string status = TextOf(adapter, "AssociationStatus");
  if (told == false || status == "NotAssociated") return false;
  if (told || status == "Associated" || status == "Roamed" || status.starts_with("Ibss")) {
    return true;
  }
  return std::nullopt;
}

void ReadRoaming(const Dump& dump, Adapter* adapter) {
  const Json& statistics = dump.Row(kStatisticsClass, adapter->key);
  adapter->roamed = {"Roamed", CountOf(statistics, "RoamCount")};
  for (std::size_t cause = 0; cause < kRoamingCauses; ++cause) {
    adapter->roamingCauses[cause] = {kCauses[cause].label,
                                     CountOf(statistics, kCauses[cause].property)};
  }
  adapter->whyNoRoaming = dump.WhyUnknown(kStatisticsClass, adapter->key);
}

/// An element of an array of counts, 0 if there is no such element.
std::uint32_t ElementOf(const Json& row, const char* property, std::size_t index) {
  const auto found = row.find(property);
  if (found == row.end() || !found->is_array() || index >= found->size()) return 0;
  return CountOf({{"element", (*found)[index]}}, "element").value_or(0);
}

void ReadPackets(const Dump& dump, Adapter* adapter) {
  const Json& traffic = dump.Row(kTrafficClass, adapter->key);
  adapter->whyNoPackets = dump.WhyUnknown(kTrafficClass, adapter->key);
  const auto rates = traffic.find("Rates");
  if (rates == traffic.end() || !rates->is_array()) return;
  for (std::size_t index = 0; index < rates->size(); ++index) {
    RatePackets packets = {CellText((*rates)[index])};
    for (const char* property : {"TxDirectPacketsRate", "TxNonDirectPacketsRate"}) {
      packets.sent += ElementOf(traffic, property, index);
    }
    for (const char* property : {"RxDirectPacketsRate", "RxNonDirectPacketsRate"}) {
      packets.received += ElementOf(traffic, property, index);
    }
    if (packets.rate != "0" || packets.sent + packets.received > 0) {
      adapter->packets.push_back(std::move(packets));
    }
  }
}

std::string TitleOf(const Dump& dump, const std::string& key) {
  const Json& configuration = dump.Row("WiFi_NetworkAdapterConfiguration", key);
  const std::string description = TextOf(configuration, "Description");
  return description.empty() ? "Adapter " + key : description + " (" + key + ")";
}

Adapter ReadAdapter(const Dump& dump, const Source& source, const std::string& key) {
  Adapter adapter;
  adapter.key = key;
  adapter.title = TitleOf(dump, key);
  const Json& row = dump.Row(kAdapterClass, key);
  if (!AnswersNothing(row)) {
    adapter.isEnabled = FlagOf(row, "AdapterState");
    adapter.radioOn = FlagOf(row, "RadioState");
    adapter.hardwareRadioOn = FlagOf(row, "HardwareRadioState");
  }
  adapter.hasFailedAuthentication = TextOf(row, "AuthenticationStatus") == "Failed authentication";
  adapter.isAssociated = Associated(row, dump.Row(kAssociationClass, key));
  if (!adapter.isAssociated) {
    adapter.whyUnknown = dump.WhyUnknown(kAssociationClass, key);
    if (adapter.whyUnknown.empty()) adapter.whyUnknown = "the adapter does not tell it";
  }
  for (std::size_t fact = 0; fact < std::size(kFacts); ++fact) {
    if (kFacts[fact].onlyAssociated && adapter.isAssociated != true) continue;
    adapter.facts[fact] = ReadFact(kFacts[fact], dump, source, key);
  }
  if (adapter.isAssociated == true) {
    adapter.signal = NumberOf(dump.Row(kStatisticsClass, key), "Rssi");
  }
  adapter.whyUnheard = dump.WhyUnknown("WiFi_AdapterCachedScanList", key);
  ReadRoaming(dump, &adapter);
  ReadPackets(dump, &adapter);
  return adapter;
}

/// The sort key of keys: numbers, as the platform gives them, before other texts.
std::tuple<bool, unsigned long long, std::string_view> Order(const std::string& key) {
  unsigned long long number = 0;
  const char* end = key.data() + key.size();
  const auto [stop, error] = std::from_chars(key.data(), end, number);
  const bool isNumber = error == std::errc() && stop == end;
  return {!isNumber, isNumber ? number : 0, key};
}

}  // namespace

const char* LabelOf(AdapterFact fact) {
  return kFacts[static_cast<std::size_t>(fact)].label;
}

std::optional<std::uint32_t> CountOf(const Json& row, const char* property) {
  const std::optional<int> number = NumberOf(row, property);
  if (!number) return std::nullopt;
  return static_cast<std::uint32_t>(*number);
}

std::vector<Adapter> AdaptersOf(const Dump& dump, const Source& source,
                                const std::vector<Network>& networks) {
  std::vector<std::string> keys = dump.adapters();
  std::ranges::sort(keys, {}, Order);
  std::vector<Adapter> adapters;
  std::unordered_map<std::string, std::size_t> places;
  for (const std::string& key : keys) {
    places[key] = adapters.size();
    adapters.push_back(ReadAdapter(dump, source, key));
  }
  for (const Network& network : networks) {
    const auto place = places.find(network.adapter);
    if (place != places.end()) adapters[place->second].networks.push_back(&network);
  }
  return adapters;
}

}  // namespace host
