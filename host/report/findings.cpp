#include "host/report/findings.h"

#include <algorithm>
#include <charconv>
#include <cstdint>
#include <map>
#include <set>

#include "host/format/format.h"
#include "host/service/result_codes.h"

namespace host {
namespace {

constexpr int kWeakSignal = -75;     ///< dBm
constexpr int kHighPercentage = 10;  ///< of failures, from which on they count as much
constexpr std::size_t kCrowd = 4;    ///< networks on one channel
constexpr std::size_t kNamesShown = 6;

std::string Joined(const std::vector<std::string>& parts) {
  std::string text;
  for (std::size_t index = 0; index < std::min(parts.size(), kNamesShown); ++index) {
    text += (index == 0 ? "" : ", ") + parts[index];
  }
  if (parts.size() > kNamesShown) {
    text += " and " + std::to_string(parts.size() - kNamesShown) + " more";
  }
  return text;
}

std::string Counted(std::size_t count, const std::string& singular) {
  return std::to_string(count) + " " + singular + (count == 1 ? "" : "s");
}

/// A network's name within a sentence, set apart so that its direction of writing stays within.
std::string Named(const std::string& name) {
  if (name.empty()) return "a hidden network";
  return "\u201C\u2068" + name + "\u2069\u201D";
}

void JudgeAssociation(const Json& dump, const Json& adapter, const std::string& title,
                      std::vector<Finding>* findings) {
  const auto isOff = [&](const char* property) { return TextOf(adapter, property) == "false"; };
  std::vector<std::string> reasons;
  if (isOff("AdapterState")) reasons.emplace_back("The adapter is disabled.");
  if (isOff("HardwareRadioState"))
    reasons.emplace_back("Radio off: the switch of the hardware is off.");
  if (isOff("RadioState")) reasons.emplace_back("Radio off: software has switched it off.");
  const std::string key = TextOf(adapter, "DeviceID");
  const Json& association = InstanceOf(dump, "WiFi_AdapterAssociationInfo", "SettingID", key);
  const std::string status = TextOf(adapter, "AssociationStatus");
  const bool isAlone = status == "NotAssociated" || TextOf(association, "Associated") == "false";
  const std::string authentication = TextOf(adapter, "AuthenticationStatus");
  if (authentication == "Failed authentication") {
    reasons.emplace_back("The last authentication failed.");
  }
  std::string detail;
  for (const std::string& reason : reasons) detail += (detail.empty() ? "" : " ") + reason;
  if (isAlone) {
    findings->push_back({Weight::kProblem, title + " is not associated", detail, kAdaptersId});
  } else if (!detail.empty()) {
    findings->push_back({Weight::kProblem, title, detail, kAdaptersId});
  }
}

void JudgeSignal(const Json& dump, const std::vector<Network>& networks, const std::string& key,
                 const std::string& title, std::vector<Finding>* findings) {
  for (const Network& network : networks) {
    if (!network.associated || network.adapter != key) continue;
    const std::string place = SpectrumId(network.spectrum);
    if (network.protection == Protection::kOpen || network.protection == Protection::kWep) {
      const bool isOpen = network.protection == Protection::kOpen;
      findings->push_back(
          {Weight::kProblem, title + " uses " + (isOpen ? "an open network" : "WEP"),
           Named(network.name) + (isOpen ? " encrypts nothing." : " can be read by others."),
           place});
    }
    std::size_t sharing = 0;
    std::size_t reaching = 0;
    for (const Network& other : networks) {
      if (other.adapter != key || &other == &network || !Overlap(network, other)) continue;
      ++(other.centre == network.centre ? sharing : reaching);
    }
    if (sharing + reaching > 0) {
      findings->push_back({Weight::kAttention,
                           title + " shares its air on channel " + std::to_string(*network.channel),
                           Counted(sharing, "more network") + " on the channel of " +
                               Named(network.name) + ", " + std::to_string(reaching) +
                               " on channels that reach into it.",
                           place});
    }
  }
  const Json& statistics = InstanceOf(dump, "WiFi_AdapterAssocStats", "SettingID", key);
  const Json& association = InstanceOf(dump, "WiFi_AdapterAssociationInfo", "SettingID", key);
  const std::optional<int> signal = NumberOf(statistics, "Rssi");
  if (TextOf(association, "Associated") == "true" && signal && *signal <= kWeakSignal) {
    findings->push_back({Weight::kAttention, title + " hears its network weakly",
                         "Signal " + std::to_string(*signal) + " dBm.",
                         ClassId("WiFi_AdapterAssocStats")});
  }
}

struct CounterRow {
  const char* className;
  const char* property;
  const char* text;
  bool isPercentage = false;
  bool alwaysMatters = false;  ///< a single one is worth a look
};

constexpr CounterRow kCounters[] = {
    {.className = "WiFi_AdapterAssocStats",
     .property = "PercentTxErrs",
     .text = " % of the transmissions failed",
     .isPercentage = true},
    {.className = "WiFi_AdapterSignalParameters",
     .property = "PercentTxRetries",
     .text = " % had to be repeated",
     .isPercentage = true},
    {.className = "WiFi_AdapterAssocStats",
     .property = "PercentMissedBeacons",
     .text = " % of the beacons were missed",
     .isPercentage = true},
    {.className = "WiFi_AdapterAssocStats",
     .property = "CrcErrs",
     .text = " frames with a wrong check sum"},
    {.className = "WiFi_AdapterAssocStats",
     .property = "DroppedByAp",
     .text = " times dropped by the access point",
     .alwaysMatters = true},
};

void JudgeStatistics(const Json& dump, const std::string& key, const std::string& title,
                     std::vector<Finding>* findings) {
  std::vector<std::string> errors;
  bool isHigh = false;
  for (const CounterRow& row : kCounters) {
    const Json& statistics = InstanceOf(dump, row.className, "SettingID", key);
    const std::optional<int> value = NumberOf(statistics, row.property);
    if (!value || *value == 0) continue;
    // Counts above 2^31 come as negative numbers.
    const auto count = static_cast<std::uint32_t>(*value);
    errors.push_back(std::to_string(count) + row.text);
    isHigh |= row.alwaysMatters || (row.isPercentage && count >= kHighPercentage);
  }
  if (errors.empty()) return;
  findings->push_back({isHigh ? Weight::kAttention : Weight::kNote, title + " counted errors",
                       Joined(errors) + ".", ClassId("WiFi_AdapterAssocStats")});
}

/// Names of unprotected networks, each once with the number of its access points.
void JudgeProtection(const std::vector<Network>& networks, Protection protection,
                     const char* headline, std::vector<Finding>* findings) {
  std::map<std::string, std::set<std::string>> points;
  std::vector<std::string> names;
  std::size_t count = 0;
  std::string place;
  for (const Network& network : networks) {
    if (network.protection != protection) continue;
    if (points[network.name].empty()) names.push_back(network.name);
    if (!points[network.name].insert(network.mac).second) continue;
    ++count;
    if (place.empty()) place = SpectrumId(network.spectrum);
  }
  if (count == 0) return;
  for (std::string& name : names) {
    const std::size_t number = points[name].size();
    name = Named(name) + (number > 1 ? " (" + std::to_string(number) + ")" : "");
  }
  findings->push_back({Weight::kAttention, Counted(count, headline), Joined(names) + ".", place});
}

void JudgeChannels(const std::vector<Network>& networks, Spectrum spectrum,
                   std::vector<Finding>* findings) {
  std::map<int, std::pair<const Network*, std::set<std::string>>> channels;  // by centre
  for (const Network& network : networks) {
    if (network.spectrum != spectrum || !network.centre) continue;
    auto& [first, points] = channels[*network.centre];
    first = &network;
    points.insert(network.mac);
  }
  std::vector<std::string> pairs;
  std::vector<std::string> crowds;
  for (auto left = channels.begin(); left != channels.end(); ++left) {
    const auto& [leftNetwork, points] = left->second;
    const std::string channel = std::to_string(*leftNetwork->channel);
    if (points.size() >= kCrowd) {
      crowds.push_back(std::to_string(points.size()) + " on channel " + channel);
    }
    for (auto right = std::next(left); right != channels.end(); ++right) {
      if (!Overlap(*leftNetwork, *right->second.first)) break;
      pairs.push_back(channel + " and " + std::to_string(*right->second.first->channel));
    }
  }
  const std::string place = SpectrumId(spectrum);
  if (!pairs.empty()) {
    findings->push_back({Weight::kAttention,
                         "Channels overlap in the " + SpectrumTitle(spectrum) + " band",
                         Joined(pairs) + ".", place});
  }
  if (!crowds.empty()) {
    findings->push_back({Weight::kNote,
                         "Networks crowd in the " + SpectrumTitle(spectrum) + " band",
                         Joined(crowds) + ".", place});
  }
}

}  // namespace

std::string AdapterTitle(const Json& dump, const std::string& key) {
  const Json& configuration =
      InstanceOf(dump, "WiFi_NetworkAdapterConfiguration", "SettingID", key);
  const std::string description = TextOf(configuration, "Description");
  return description.empty() ? "Adapter " + key : description + " (" + key + ")";
}

std::string FailureOf(const Json& dump, const std::string& className) {
  for (const Json& origin : InstancesOf(dump, "wmihost")) {
    for (const Json& failure : origin.value("Failures", Json::array())) {
      const std::string text = CellText(failure);
      if (!text.starts_with(className + " 0x")) continue;
      const char* digits = text.data() + className.size() + 3;
      std::uint32_t code = 0;
      std::from_chars(digits, text.data() + text.size(), code, 16);
      return DescribeResult(static_cast<HRESULT>(code));
    }
  }
  return "";
}

std::string SpectrumId(Spectrum spectrum) {
  return spectrum == Spectrum::k24GHz  ? "band-2"
         : spectrum == Spectrum::k5GHz ? "band-5"
                                       : "band-other";
}

std::string SpectrumTitle(Spectrum spectrum) {
  return spectrum == Spectrum::k24GHz  ? "2.4 GHz"
         : spectrum == Spectrum::k5GHz ? "5 GHz"
                                       : "Band unknown";
}

std::string ClassId(const std::string& className) {
  return "class-" + className;
}

std::vector<Finding> FindingsOf(const Json& dump, const std::vector<Network>& networks) {
  std::vector<Finding> findings;
  const Json& adapters = InstancesOf(dump, "WiFi_NetworkAdapter");
  if (adapters.empty()) {
    findings.push_back({Weight::kProblem, "There is no adapter", "", kAdaptersId});
  }
  for (const Json& adapter : adapters) {
    const std::string key = TextOf(adapter, "DeviceID");
    const std::string title = AdapterTitle(dump, key);
    JudgeAssociation(dump, adapter, title, &findings);
    JudgeSignal(dump, networks, key, title, &findings);
    JudgeStatistics(dump, key, title, &findings);
  }
  JudgeProtection(networks, Protection::kOpen, "open access point", &findings);
  JudgeProtection(networks, Protection::kWep, "WEP access point", &findings);
  JudgeChannels(networks, Spectrum::k24GHz, &findings);
  JudgeChannels(networks, Spectrum::k5GHz, &findings);
  for (const auto& [name, rows] : dump.items()) {
    const std::string failure = FailureOf(dump, name);
    if (failure.empty()) continue;
    findings.push_back({Weight::kNote, name + " was not read in full", failure, ClassId(name)});
  }
  std::ranges::stable_sort(findings, {}, &Finding::weight);
  return findings;
}

}  // namespace host
