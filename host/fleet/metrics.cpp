#include "host/fleet/metrics.h"

#include <algorithm>
#include <array>
#include <charconv>
#include <cstdint>
#include <iterator>
#include <map>
#include <optional>
#include <set>
#include <string_view>

namespace host {
namespace {

using Labels = std::vector<std::pair<const char*, std::string>>;

constexpr const char* kNetworkAdapter = "WiFi_NetworkAdapter";
constexpr const char* kAssociation = "WiFi_AdapterAssociationInfo";
constexpr const char* kStatistics = "WiFi_AdapterAssocStats";
constexpr const char* kTraffic = "WiFi_AdapterTxRxStats";
constexpr double kPercent = 0.01;
constexpr double kMegabits = 125000;  ///< bytes

/// A property that becomes a metric. Rows of one metric are together.
struct PropertyRow {
  const char* metric;
  const char* className;
  const char* property;
  double factor = 1;  ///< from the property's unit to the base unit
  bool onlyAssociated = false;
  const char* label = nullptr;
  const char* value = nullptr;
  const char* help = nullptr;  ///< of the metric; null: what the schema says of the property
};

constexpr const char* kRoams = "Number of times that the adapter changed its access point.";
constexpr const char* kBytes = "Bytes that the adapter sent and received.";
constexpr const char* kPackets = "Packets that the adapter sent and received.";
constexpr PropertyRow kProperties[] = {
    {"wifi_radio_on", kNetworkAdapter, "RadioState"},
    {"wifi_radio_switch_on", kNetworkAdapter, "HardwareRadioState"},
    {"wifi_signal_dbm", kStatistics, "Rssi", 1, true},
    {"wifi_link_rate_bytes_per_second", kAssociation, "Rate", kMegabits, true},
    {"wifi_roams_total", kStatistics, "ApDidNotTx", 1, false, "reason", "silent_access_point",
     kRoams},
    {"wifi_roams_total", kStatistics, "PoorBeaconQuality", 1, false, "reason", "bad_beacons"},
    {"wifi_roams_total", kStatistics, "LoadBalancing", 1, false, "reason", "load_balancing"},
    {"wifi_roams_total", kStatistics, "LowRssi", 1, false, "reason", "weak_signal"},
    {"wifi_roams_total", kStatistics, "PoorChannelQuality", 1, false, "reason", "bad_channel"},
    {"wifi_drops_total", kStatistics, "DroppedByAp"},
    {"wifi_beacons_total", kStatistics, "RxBeacons"},
    {"wifi_missed_beacons_ratio", kStatistics, "PercentMissedBeacons", kPercent},
    {"wifi_retries_total", kStatistics, "TxRetries"},
    {"wifi_failed_transmissions_ratio", kStatistics, "PercentTxErrs", kPercent},
    {"wifi_check_sum_errors_total", kStatistics, "CrcErrs"},
    {"wifi_bytes_total", kTraffic, "TxTotalBytes", 1, false, "direction", "sent", kBytes},
    {"wifi_bytes_total", kTraffic, "RxTotalBytes", 1, false, "direction", "received"},
    {"wifi_packets_total", kTraffic, "TxTotalPackets", 1, false, "direction", "sent", kPackets},
    {"wifi_packets_total", kTraffic, "RxTotalPackets", 1, false, "direction", "received"},
};

// In the order of Spectrum and Protection.
constexpr std::array kBands = {"2.4GHz", "5GHz", "unknown"};
constexpr std::array kProtections = {"unknown", "open", "wep", "protected"};

std::string NumberText(double number) {
  char text[32];
  return {text, std::to_chars(std::begin(text), std::end(text), number).ptr};
}

std::string LabelsText(const Labels& labels) {
  std::string text;
  for (const auto& [name, value] : labels) {
    text += (text.empty() ? "{" : ",") + std::string(name) + "=\"";
    for (const char character : value) {
      if (character == '\\' || character == '"') text += '\\';
      if (character == '\n') {
        text += "\\n";
      } else {
        text += character;
      }
    }
    text += '"';
  }
  return text.empty() ? text : text + "}";
}

/// The samples of each metric, in the order in which the metrics first appear.
class Metrics {
 public:
  /// `help` may be empty if the metric has one already.
  void Add(const char* name, const std::string& help, const Labels& labels, double value) {
    auto metric = std::ranges::find(metrics_, std::string_view(name), &Metric::name);
    if (metric == metrics_.end()) metric = metrics_.insert(metric, {name, help, ""});
    metric->samples += name + LabelsText(labels) + " " + NumberText(value) + "\n";
  }

  std::string Text() const {
    std::string text;
    for (const Metric& metric : metrics_) {
      const bool isCounter = metric.name.ends_with("_total");
      const std::string name(metric.name);
      text += "# HELP " + name + " " + metric.help + "\n# TYPE " + name +
              (isCounter ? " counter\n" : " gauge\n") + metric.samples;
    }
    return text;
  }

 private:
  struct Metric {
    std::string_view name;
    std::string help;
    std::string samples;
  };
  std::vector<Metric> metrics_;
};

/// What the schema says of a property, without the form of its text.
std::string Described(const Repository& repository, const PropertyRow& row) {
  const ClassInfo* info = repository.FindClass(row.className);
  const auto place = info == nullptr ? std::nullopt : info->FindProperty(row.property);
  if (!place) return "";
  std::string text = info->declaration.properties[*place].qualifiers.Text("Description");
  for (const std::string_view form : {" as a ", ", as a "}) {
    text.resize(std::min(text.find(form), text.size()));
  }
  return text.ends_with('.') ? text : text + ".";
}

/// A flag, a count modulo 2^32, or a number with decimals.
std::optional<double> ValueOf(const Json& instance, const PropertyRow& row) {
  const auto found = instance.find(row.property);
  if (found == instance.end()) return std::nullopt;
  if (found->is_boolean()) return found->get<bool>() ? 1 : 0;
  const std::string_view name = row.metric;
  if (name.ends_with("_total")) {
    const auto count = CountOf(instance, row.property);
    return count ? std::optional<double>(*count) : std::nullopt;
  }
  const std::string text = TextOf(instance, row.property);
  double number = 0;
  const char* end = text.data() + text.size();
  const auto [next, error] = std::from_chars(text.data(), end, number, std::chars_format::fixed);
  if (error != std::errc() || (next != end && *next != ' ')) return std::nullopt;
  // A number of percent is divided, which gives a shorter fraction than multiplying.
  return row.factor < 1 ? number / (1 / row.factor) : number * row.factor;
}

/// A version as a number that is greater for a later version: four parts of 16 bits. Nothing for
/// another text.
std::optional<double> VersionNumber(const std::string& text) {
  constexpr int kParts = 4;
  constexpr double kPart = 65536;
  double number = 0;
  const char* next = text.data();
  const char* end = next + text.size();
  for (int part = 0; part < kParts; ++part) {
    std::uint16_t value = 0;
    if (next != end) {
      if (part > 0 && *next++ != '.') return std::nullopt;
      const auto [stop, error] = std::from_chars(next, end, value);
      if (error != std::errc()) return std::nullopt;
      next = stop;
    } else if (part == 0) {
      return std::nullopt;
    }
    number = number * kPart + value;
  }
  return next == end ? std::optional(number) : std::nullopt;
}

void AddAdapters(const Machine& machine, Metrics* metrics) {
  if (machine.whyMoreAdapters.empty()) {
    metrics->Add("wifi_adapters", "Number of adapters.", {},
                 static_cast<double>(machine.adapters.size()));
  }
  for (const Adapter& adapter : machine.adapters) {
    const std::string& driver = adapter.Get(AdapterFact::kDriver).value;
    metrics->Add("wifi_adapter_info", "The adapters, with what identifies them.",
                 {{"adapter", adapter.key},
                  {"name", adapter.title},
                  {"type", adapter.Get(AdapterFact::kType).value},
                  {"mac", adapter.Get(AdapterFact::kMac).value},
                  {"driver", driver}},
                 1);
  }
  for (const Adapter& adapter : machine.adapters) {
    const auto version = VersionNumber(adapter.Get(AdapterFact::kDriver).value);
    if (!version) continue;
    metrics->Add("wifi_driver_version",
                 "Version of the driver as a number: its four parts as digits of base 65536.",
                 {{"adapter", adapter.key}}, *version);
  }
  for (const Adapter& adapter : machine.adapters) {
    if (!adapter.isAssociated) continue;
    metrics->Add("wifi_associated", "Whether the adapter is associated with a network.",
                 {{"adapter", adapter.key}}, *adapter.isAssociated ? 1 : 0);
  }
  for (const Adapter& adapter : machine.adapters) {
    const auto network = std::ranges::find_if(adapter.networks,
                                              [](const Network* each) { return each->associated; });
    if (adapter.isAssociated != true || network == adapter.networks.end()) continue;
    metrics->Add("wifi_association_info",
                 "The kind of network that the adapter is associated with.",
                 {{"adapter", adapter.key},
                  {"band", kBands[static_cast<std::size_t>((*network)->spectrum)]},
                  {"security", kProtections[static_cast<std::size_t>((*network)->protection)]}},
                 1);
  }
}

void AddProperties(const Machine& machine, const Dump& dump, const Repository& repository,
                   Metrics* metrics) {
  std::string_view metric;
  std::string help;  // of all rows of the metric
  for (const PropertyRow& row : kProperties) {
    if (row.metric != metric) help = row.help == nullptr ? Described(repository, row) : row.help;
    metric = row.metric;
    for (const Adapter& adapter : machine.adapters) {
      if (row.onlyAssociated && adapter.isAssociated != true) continue;
      const auto value = ValueOf(dump.Row(row.className, adapter.key), row);
      if (!value) continue;
      Labels labels = {{"adapter", adapter.key}};
      if (row.label != nullptr) labels.emplace_back(row.label, row.value);
      metrics->Add(row.metric, help, labels, *value);
    }
  }
}

void AddNetworks(const Machine& machine, Metrics* metrics) {
  using Points = std::set<std::string>;
  std::array<std::array<Points, kProtections.size()>, kBands.size()> kinds;
  std::map<int, std::pair<int, Points>> channels;  // by centre
  for (const Network& network : machine.networks) {
    const auto band = static_cast<std::size_t>(network.spectrum);
    kinds[band][static_cast<std::size_t>(network.protection)].insert(network.mac);
    if (!network.centre) continue;
    auto& [channel, points] = channels[*network.centre];
    channel = *network.channel;
    points.insert(network.mac);
  }
  for (std::size_t band = 0; band < kBands.size(); ++band) {
    for (std::size_t protection = 0; protection < kProtections.size(); ++protection) {
      metrics->Add("wifi_networks", "Number of access points and ad hoc networks in range.",
                   {{"band", kBands[band]}, {"security", kProtections[protection]}},
                   static_cast<double>(kinds[band][protection].size()));
    }
  }
  for (const auto& [centre, found] : channels) {
    metrics->Add("wifi_channel_networks",
                 "Number of access points and ad hoc networks on each channel that has any.",
                 {{"channel", std::to_string(found.first)}},
                 static_cast<double>(found.second.size()));
  }
}

void AddProvider(const Machine& machine, const Dump& dump, const RequestTimes& times,
                 Metrics* metrics) {
  metrics->Add("wifi_provider_up", "Whether the provider told all adapters.", {},
               machine.whyMoreAdapters.empty() ? 1 : 0);
  for (const auto& [name, time] : times) {
    const HRESULT status = dump.Status(name);
    const bool isEmptyList = ShowsLists(name) && status == WBEM_E_NOT_FOUND;
    metrics->Add("wifi_provider_request_failed", "Whether the enumeration of the class failed.",
                 {{"class", name}}, status == S_OK || isEmptyList ? 0 : 1);
  }
  for (const auto& [name, time] : times) {
    metrics->Add("wifi_provider_request_seconds", "How long the enumeration of the class took.",
                 {{"class", name}}, time);
  }
}

}  // namespace

std::string MetricsText(const Machine& machine, const Dump& dump, const Repository& repository,
                        const RequestTimes& times) {
  Metrics metrics;
  AddProvider(machine, dump, times, &metrics);
  AddAdapters(machine, &metrics);
  AddProperties(machine, dump, repository, &metrics);
  AddNetworks(machine, &metrics);
  return metrics.Text();
}

}  // namespace host
