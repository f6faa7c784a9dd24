#include "host/model/networks.h"

#include <algorithm>
#include <cstdlib>
#include <iterator>
#include <map>

#include "host/format/format.h"
#include "platform/tables/code_page_1252.h"
#include "platform/text.h"

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

/// Determines the protection of a network in the scan list, whose `Encrypted` is a number.
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

/// Sets the spectrum by the standard, else by the channel's number, and the centre if the channel
/// has one.
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

/// The text that the bytes of a name form as UTF-8, where the provider read them in the code page;
/// empty if they are not UTF-8, or give the same text.
std::string Utf8Reading(const std::string& name) {
  std::string bytes;
  bool isAscii = true;
  for (const auto character : platform::WideFromUtf8(name)) {
    const auto code = static_cast<char32_t>(character);
    const auto* special = std::ranges::find(platform::kCodePage1252Controls, code);
    if (special != std::end(platform::kCodePage1252Controls)) {
      bytes += static_cast<char>(0x80 + (special - platform::kCodePage1252Controls));
    } else if (code <= 0xFF) {
      bytes += static_cast<char>(code);
    } else {
      return "";
    }
    isAscii = isAscii && code < 0x80;
  }
  const bool isUtf8 = platform::Utf8Text(platform::WideFromUtf8(bytes)) == bytes;
  return !isAscii && isUtf8 ? CellText(bytes) : "";
}

}  // namespace

Network NetworkOf(const Json& row) {
  Network network;
  network.adapter = TextOf(row, "SettingID");
  network.name = TextOf(row, "NetworkName");
  const auto name = row.find("NetworkName");
  if (name != row.end() && name->is_string()) {
    network.utf8Name = Utf8Reading(name->get_ref<const std::string&>());
  }
  network.mac = TextOf(row, "MacAddress");
  network.standard = TextOf(row, "Band");
  network.mode = TextOf(row, "OperationMode");
  network.signal = NumberOf(row, "RSSI");
  network.channel = NumberOf(row, "ChannelID");
  // In the list of available networks this property has the channel, as a text.
  const auto encrypted = row.find("Encrypted");
  if (!network.channel && encrypted != row.end() && encrypted->is_string()) {
    network.channel = NumberOf(row, "Encrypted");
  }
  Classify(row, &network);
  Place(&network);
  return network;
}

std::string WhyNotCharted(const Network& network) {
  if (!network.channel) return "no channel told";
  if (!network.signal) return "no signal told";
  return network.centre ? "" : "channel " + std::to_string(*network.channel);
}

std::vector<Network> NetworksOf(const Dump& dump, const Source& source) {
  std::vector<Network> networks;
  std::map<std::pair<std::string, std::string>, std::size_t> known;
  for (const Json& row : dump.Rows(kScanned)) {
    Network network = NetworkOf(row);
    known.emplace(std::pair(network.adapter, network.mac), networks.size());
    if (dump.WhyUnknown(kAvailable, network.adapter).empty()) network.available = false;
    networks.push_back(std::move(network));
  }
  for (const Json& row : dump.Rows(kAvailable)) {
    Network network = NetworkOf(row);
    const auto [place, isNew] =
        known.emplace(std::pair(network.adapter, network.mac), networks.size());
    if (isNew) networks.push_back(std::move(network));
    networks[place->second].available = true;
  }
  for (Network& network : networks) {
    network.isAvailableInvented = source.IsInvented(kAvailable, "MacAddress", network.adapter);
  }
  for (const Json& association : dump.Rows("WiFi_AdapterAssociationInfo")) {
    if (TextOf(association, "Associated") != "true") continue;
    const std::string adapter = TextOf(association, "SettingID");
    const Json& statistics = dump.Row("WiFi_AdapterAssocStats", adapter);
    const auto found = known.find(std::pair(adapter, TextOf(statistics, "ApMacAddr")));
    if (found != known.end()) networks[found->second].associated = true;
  }
  return networks;
}

bool Overlap(const Network& left, const Network& right) {
  return left.centre && right.centre && std::abs(*left.centre - *right.centre) < kChannelWidth;
}

std::string SpectrumTitle(Spectrum spectrum) {
  return spectrum == Spectrum::k24GHz  ? "2.4 GHz"
         : spectrum == Spectrum::k5GHz ? "5 GHz"
                                       : "Band unknown";
}

}  // namespace host
