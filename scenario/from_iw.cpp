#include "scenario/from_iw.h"

#include <algorithm>
#include <cmath>
#include <limits>
#include <map>
#include <optional>
#include <set>
#include <span>
#include <tuple>

#include "platform/text.h"
#include "scenario/ansi.h"
#include "scenario/hex.h"
#include "scenario/iw_scan.h"
#include "scenario/json.h"
#include "scenario/signal_quality.h"

namespace simulator {
namespace {

using Json = nlohmann::ordered_json;

/// A capture does not contain the adapter's own address; this one is locally administered.
constexpr const char* kAdapterAddress = "02:00:00:00:00:01";

/// What classes show of a capture; everything else is made up.
constexpr const char* kToldByScan = "WiFi_AdapterCachedScanList";
constexpr const char* kToldOfAssociation[] = {
    "WiFi_NetworkAdapter.AssociationStatus",
    "WiFi_AdapterAssociationInfo.Associated",
    "WiFi_AdapterAssociationInfo.SSID",
    "WiFi_AdapterAssociationInfo.Channel",
    "WiFi_AdapterAssociationInfo.OpMode",
    "WiFi_AdapterAssociationInfo.AuthenMode",
    "WiFi_AdapterAssociationInfo.Encryption",
    "WiFi_AdapterAssocStats.ApMacAddr",
    "WiFi_AdapterAssocStats.Rssi",
};

struct Channel {
  bool is5GHz;
  int number;
};

/// The channel at a frequency in MHz; nullopt outside the bands of 802.11a, b and g.
std::optional<Channel> ChannelAt(double frequency) {
  const int mhz = static_cast<int>(frequency);
  if (mhz == 2484) return Channel{false, 14};
  if (mhz >= 2412 && mhz <= 2472 && mhz % 5 == 2) return Channel{false, (mhz - 2407) / 5};
  if (mhz >= 5160 && mhz <= 5885 && mhz % 5 == 0) return Channel{true, (mhz - 5000) / 5};
  return std::nullopt;
}

bool IsLeftOut(const IwNetwork& network) {
  return network.frequency && !ChannelAt(*network.frequency);
}

/// A name as text if all of it exists in code page 1252, else as its octets.
Json NameOf(const std::string& name) {
  const bool isUtf8 = platform::Utf8Text(platform::WideFromUtf8(name)) == name;
  if (isUtf8 && name.find('\0') == name.npos && AnsiFromUtf8(name)) return name;
  std::string hex;
  for (const char octet : name) hex += UpperHex(static_cast<unsigned char>(octet), 2);
  return {{"hex", hex}};
}

const char* OpModeOf(const IwNetwork& network) {
  return network.adHoc ? "Ad hoc" : "Infrastructure";
}

Json EntryOf(const IwNetwork& network) {
  Json entry = {{"ssid", NameOf(network.name)}, {"mac", network.address}};
  if (network.frequency) {
    const Channel channel = *ChannelAt(*network.frequency);
    const bool is11b = network.bestRate > 0 && network.only11bRates;
    entry["band"] = channel.is5GHz ? "802.11a" : is11b ? "802.11b" : "802.11g";
    entry["channel"] = channel.number;
  }
  entry["opMode"] = OpModeOf(network);
  entry["rssi"] = std::lround(network.signal);
  entry["encrypted"] = network.privacy || network.secured;
  entry["stealth"] = network.hidden;
  if (network.secured) {
    entry["auth"] = network.auth;
    entry["unicast"] = network.unicast;
    entry["multicast"] = network.multicast;
  } else {
    // Neither the length of a WEP key nor its use for authentication is announced.
    using Names = std::vector<const char*>;
    const Names ciphers = network.privacy ? Names{"WEP40", "WEP104"} : Names{"None"};
    entry["auth"] = network.privacy ? Names{"Open", "Shared"} : Names{"Open"};
    entry["unicast"] = ciphers;
    entry["multicast"] = ciphers;
  }
  return entry;
}

/// Names for the bits of an entry and the matching code of an association; the first row whose name
/// the entry has is used.
struct Choice {
  const char* bit;
  const char* code;
};
constexpr Choice kAuthenModes[] = {
    {"RSNA", "WPA2-Enterprise"}, {"WPA", "WPA-Enterprise"}, {"PSK", "WPA2-Personal"},
    {"WPA_PSK", "WPA-Personal"}, {"Open", "Open"},          {"Shared", "Shared"}};
/// There is no code for AES-CCMP: the encryption is unknown.
constexpr Choice kEncryptions[] = {{"AES-CCMP", nullptr},
                                   {"TKIP", "TKIP"},
                                   {"WEP104", "104-bit"},
                                   {"WEP40", "40-bit"},
                                   {"None", "None"}};

void Choose(std::span<const Choice> choices, const Json& bits, const char* member, Json& record) {
  const auto choice = std::ranges::find_if(choices, [&bits](const Choice& row) {
    return std::ranges::find(bits, row.bit) != bits.end();
  });
  if (choice != choices.end() && choice->code != nullptr) record[member] = choice->code;
}

void Associate(const IwNetwork& network, const Json& entry, Json& adapter) {
  Json association = {{"associated", true},       {"profileName", "@direct@"},
                      {"ssid", entry["ssid"]},    {"bssid", network.address},
                      {"rate", network.bestRate}, {"opMode", entry["opMode"]}};
  Choose(kAuthenModes, entry["auth"], "authenMode", association);
  Choose(kEncryptions, entry["unicast"], "encryption", association);
  association["authenEnabled"] = association.value("authenMode", "Open") != "Open";
  if (entry.contains("channel")) {
    association["channel"] = entry["channel"];
    adapter["band"] = entry["band"];
  }
  const std::int32_t rssi = entry["rssi"];
  adapter["associationStatus"] = network.adHoc ? "Ibss Joined" : "Associated";
  adapter["authenticationStatus"] = "Authenticated";
  adapter["txRate"] = network.bestRate;
  adapter["association"] = association;
  adapter["associationStats"] = {{"rssi", rssi}};
  adapter["signal"] = {{"quality", QualityOf(rssi)}, {"rssi", rssi}};
}

/// Greater for the network to keep of two with the same address: the associated one, else the one
/// seen last.
auto Weight(const IwNetwork& network) {
  return std::tuple(network.associated,
                    -network.lastSeen.value_or(std::numeric_limits<double>::max()));
}

/// The address with the number in place of the masked pairs, the last pair first; locally
/// administered unless its first pair is known.
std::string MadeUp(std::string address, std::size_t number) {
  for (std::size_t at = address.rfind(kMaskedPair); at != address.npos;
       at = address.rfind(kMaskedPair)) {
    const auto octet = static_cast<unsigned char>(at == 0 ? number << 2 | 2 : number);
    address.replace(at, kMaskedPair.size(), UpperHex(octet, 2));
    number >>= 8;
  }
  return address;
}

/// Gives masked addresses distinct invented ones, and adds a remark. Returns whether there were
/// any.
bool Unmask(std::vector<IwNetwork>& networks, const std::string& source,
            std::vector<std::string>& remarks) {
  constexpr std::size_t kMostTries = 1 << 16;
  std::set<std::string> used = {kAdapterAddress};
  for (const IwNetwork& network : networks) used.insert(network.address);
  std::map<std::string, std::size_t> numbers;  ///< the next number of each masked address
  std::size_t count = 0;
  std::string example;
  for (IwNetwork& network : networks) {
    if (network.address.find(kMaskedPair) == std::string::npos) continue;
    std::size_t& number = numbers[network.address];
    std::string made;
    do made = MadeUp(network.address, number);
    while (!used.insert(made).second && ++number < kMostTries);
    if (count++ == 0) example = network.address + " is " + made;
    network.address = made;
  }
  if (count == 0) return false;
  remarks.push_back(source + ": " + std::to_string(count) +
                    (count == 1 ? " address is" : " addresses are") +
                    " masked, and made up so that they stay apart: " + example);
  return true;
}

/// Keeps one network for each address, because the address is a key of the management classes, and
/// no network in a band that the library does not have.
std::vector<IwNetwork> Select(std::vector<IwNetwork> networks, const std::string& source,
                              std::vector<std::string>& remarks) {
  const auto leaveOut = [&](const IwNetwork& network, const std::string& why) {
    remarks.push_back(source + ", line " + std::to_string(network.line) + ": " + network.address +
                      " is left out: " + why);
  };
  std::vector<IwNetwork> selected;
  std::map<std::string, std::size_t> places;
  for (IwNetwork& network : networks) {
    if (IsLeftOut(network)) {
      leaveOut(network, "it is on no channel of the 2.4 or 5 GHz band");
      continue;
    }
    const auto [place, isNew] = places.try_emplace(network.address, selected.size());
    if (isNew) {
      selected.push_back(std::move(network));
      continue;
    }
    IwNetwork& known = selected[place->second];
    if (Weight(network) >= Weight(known)) std::swap(network, known);
    leaveOut(network, "line " + std::to_string(known.line) + " has the same address");
  }
  return selected;
}

}  // namespace

ScenarioOfCapture ScenarioFromIw(std::string_view capture, const std::string& source) {
  ScenarioOfCapture result;
  std::vector<IwNetwork> seen = ParseIwScan(capture, source);
  const bool isMasked = Unmask(seen, source, result.remarks);
  const std::vector<IwNetwork> networks = Select(std::move(seen), source, result.remarks);
  Json madeOf = {{"source", "a scan by iw, " + FileNameOf(source)}, {"told", {kToldByScan}}};
  Json adapter = {{"mac", kAdapterAddress}};
  Json entries = Json::array();
  for (const IwNetwork& network : networks) {
    entries.push_back(EntryOf(network));
    if (network.associated && !adapter.contains("association")) {
      Associate(network, entries.back(), adapter);
      for (const char* told : kToldOfAssociation) madeOf["told"].push_back(told);
    }
  }
  if (isMasked) madeOf["invented"] = {std::string(kToldByScan) + ".MacAddress"};
  adapter["cachedNetworks"] = entries;
  adapter["availableNetworks"] = std::move(entries);
  const Json adapters = Json::array({adapter});
  result.json = Json{{"madeOf", madeOf}, {"adapters", adapters}}.dump(2) + "\n";
  return result;
}

std::string FileNameOf(const std::string& path) {
  return path.substr(path.find_last_of("/\\") + 1);
}

}  // namespace simulator
