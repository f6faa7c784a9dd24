#include "host/report/networks.h"

#include <charconv>
#include <cstdlib>
#include <map>

#include "host/format/format.h"

namespace host {
namespace {

constexpr const char* kScanned = "WiFi_AdapterCachedScanList";
constexpr const char* kAvailable = "WiFi_AvailableNetwork";

struct AuthenticationRow {
  std::string_view level;  ///< AuthLevel
  std::string_view shown;
};

constexpr AuthenticationRow kAuthentications[] = {{"RSNA", "WPA2-Enterprise"},
                                                  {"PSK", "WPA2-Personal"},
                                                  {"WPA", "WPA-Enterprise"},
                                                  {"WPA_PSK", "WPA-Personal"}};

/// What protects a network of the scan list, whose `Encrypted` is a number.
void Classify(const Json& row, Network* network) {
  const auto encrypted = row.find("Encrypted");
  if (encrypted == row.end() || !encrypted->is_number()) return;
  std::string cipher = TextOf(row, "UnicastEncryptionLevel");
  if (cipher == "None" || cipher == "UnKnown") cipher.clear();
  const std::string level = TextOf(row, "AuthLevel");
  if (*encrypted == 0 && cipher.empty()) {
    network->protection = Protection::kOpen;
    network->security = "Open";
    return;
  }
  std::string_view shown = cipher.empty() ? "Encrypted" : "";
  for (const AuthenticationRow& each : kAuthentications) {
    if (each.level == level) shown = each.shown;
  }
  const bool isWep = cipher.starts_with("WEP") || (cipher.empty() && level == "Shared");
  network->protection = isWep ? Protection::kWep : Protection::kProtected;
  network->security = isWep ? (cipher.empty() ? "WEP" : cipher) : std::string(shown);
  if (!isWep && !cipher.empty()) network->security += (shown.empty() ? "" : ", ") + cipher;
}

/// The spectrum by the standard, else by the channel's number; the centre if it has a place there.
void Place(Network* network) {
  const int channel = network->channel.value_or(0);
  const bool low = channel >= 1 && channel <= 14;
  const bool high = (channel >= 32 && channel <= 66) || (channel >= 98 && channel <= 177);
  if (network->standard == "802.11a") {
    network->spectrum = Spectrum::k5GHz;
  } else if (network->standard == "802.11b" || network->standard == "802.11g") {
    network->spectrum = Spectrum::k24GHz;
  } else if (low || high) {
    network->spectrum = low ? Spectrum::k24GHz : Spectrum::k5GHz;
  }
  if (low && network->spectrum == Spectrum::k24GHz) {
    network->centre = channel == 14 ? 2484 : 2407 + 5 * channel;
  } else if (high && network->spectrum == Spectrum::k5GHz) {
    network->centre = 5000 + 5 * channel;
  }
}

Network ReadNetwork(const Json& row) {
  Network network;
  network.adapter = TextOf(row, "SettingID");
  network.name = TextOf(row, "NetworkName");
  network.mac = TextOf(row, "MacAddress");
  network.standard = TextOf(row, "Band");
  network.mode = TextOf(row, "OperationMode");
  network.signal = NumberOf(row, "RSSI");
  network.channel = NumberOf(row, "ChannelID");
  // The list of available networks has its channel, as a text, in a property of this name.
  const auto encrypted = row.find("Encrypted");
  if (!network.channel && encrypted != row.end() && encrypted->is_string()) {
    network.channel = NumberOf(row, "Encrypted");
  }
  Classify(row, &network);
  Place(&network);
  return network;
}

}  // namespace

std::string TextOf(const Json& row, const char* name) {
  const auto found = row.find(name);
  return found == row.end() ? std::string() : CellText(*found);
}

std::optional<int> NumberOf(const Json& row, const char* name) {
  const std::string text = TextOf(row, name);
  int number = 0;
  const char* end = text.data() + text.size();
  const auto [next, error] = std::from_chars(text.data(), end, number);
  if (error != std::errc() || (next != end && *next != ' ')) return std::nullopt;
  return number;
}

const Json& InstancesOf(const Json& dump, std::string_view className) {
  static const Json kNone = Json::array();
  const auto found = dump.find(className);
  return found == dump.end() || !found->is_array() ? kNone : *found;
}

const Json& InstanceOf(const Json& dump, std::string_view className, const char* key,
                       std::string_view value) {
  static const Json kNone = Json::object();
  for (const Json& row : InstancesOf(dump, className)) {
    if (TextOf(row, key) == value) return row;
  }
  return kNone;
}

std::optional<Network> ChartedNetwork(const Json& row) {
  Network network = ReadNetwork(row);
  if (!network.channel || !network.signal) return std::nullopt;
  return network;
}

std::vector<Network> NetworksOf(const Json& dump) {
  std::vector<Network> networks;
  std::map<std::pair<std::string, std::string>, std::size_t> known;
  for (const Json& row : InstancesOf(dump, kScanned)) {
    Network network = ReadNetwork(row);
    known.emplace(std::pair(network.adapter, network.mac), networks.size());
    networks.push_back(std::move(network));
  }
  for (const Json& row : InstancesOf(dump, kAvailable)) {
    Network network = ReadNetwork(row);
    const auto [place, isNew] =
        known.emplace(std::pair(network.adapter, network.mac), networks.size());
    if (isNew) networks.push_back(std::move(network));
    networks[place->second].available = true;
  }
  for (const Json& association : InstancesOf(dump, "WiFi_AdapterAssociationInfo")) {
    if (TextOf(association, "Associated") != "true") continue;
    const std::string adapter = TextOf(association, "SettingID");
    const Json& statistics = InstanceOf(dump, "WiFi_AdapterAssocStats", "SettingID", adapter);
    const auto found = known.find(std::pair(adapter, TextOf(statistics, "ApMacAddr")));
    if (found != known.end()) networks[found->second].associated = true;
  }
  return networks;
}

bool Overlap(const Network& left, const Network& right) {
  return left.centre && right.centre && std::abs(*left.centre - *right.centre) < kChannelWidth;
}

}  // namespace host
