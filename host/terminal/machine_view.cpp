#include "host/terminal/machine_view.h"

#include <algorithm>
#include <limits>
#include <utility>
#include <vector>

#include "host/format/format.h"
#include "host/format/sort.h"
#include "host/format/visible_text.h"

namespace host {
namespace {

constexpr const char* kNotKnown = "?";

/// Four bars, one for each step of 10 dBm from -85 dBm on.
std::string Bars(int signal) {
  constexpr int kWeakest = -85;
  constexpr int kStep = 10;
  constexpr const char* kBars[] = {"\u2582", "\u2584", "\u2586", "\u2588"};
  std::string bars;
  int least = kWeakest;
  for (const char* bar : kBars) {
    bars += signal >= least ? bar : "_";
    least += kStep;
  }
  return bars;
}

Json OrNull(const std::string& text) {
  return text.empty() ? Json() : Json(text);
}

template <class Value>
Json OrNull(const std::optional<Value>& value) {
  return value ? Json(*value) : Json();
}

/// The networks, the strongest first.
std::vector<const Network*> Sorted(const std::vector<Network>& networks) {
  std::vector<Json> signals;
  for (const Network& network : networks) signals.push_back(OrNull(network.signal));
  std::vector<const Network*> sorted;
  for (const std::size_t index : SortedOrder(signals, true)) sorted.push_back(&networks[index]);
  return sorted;
}

std::string NameOf(const Network& network) {
  if (network.name.empty()) return "(hidden)";
  return network.name + (network.utf8Name.empty() ? "" : " (" + network.utf8Name + ")");
}

/// The state of an adapter's radio and association, nullopt if it is unknown.
std::optional<std::string> StateOf(const Adapter& adapter) {
  if (adapter.isEnabled == false) return "disabled";
  if (adapter.hardwareRadioOn == false) return "radio off by its switch";
  if (adapter.radioOn == false) return "radio off";
  if (adapter.hasFailedAuthentication) return "authentication failed";
  if (!adapter.isAssociated) return std::nullopt;
  return *adapter.isAssociated ? "associated" : "not associated";
}

/// A fact for a table: its value, a mark for an unknown value, nothing for a value that does not
/// exist.
std::string Shown(const Adapter& adapter, AdapterFact name) {
  const Fact& fact = adapter.Get(name);
  if (!fact.value.empty()) return fact.value;
  return fact.why.empty() ? "" : kNotKnown;
}

constexpr AdapterFact kTableFacts[] = {AdapterFact::kNetwork, AdapterFact::kAccessPoint,
                                       AdapterFact::kSignal, AdapterFact::kRate,
                                       AdapterFact::kAddress};
constexpr AdapterFact kStatusFacts[] = {
    AdapterFact::kNetwork, AdapterFact::kAccessPoint, AdapterFact::kSignal,
    AdapterFact::kChannel, AdapterFact::kRate,        AdapterFact::kSecurity,
    AdapterFact::kProfile, AdapterFact::kAddress,     AdapterFact::kGateway};

/// "Access point" as the name of a member.
std::string MemberName(AdapterFact fact) {
  std::string name;
  bool isStart = true;
  for (const char* letter = LabelOf(fact); *letter != '\0'; ++letter) {
    if (*letter != ' ')
      name += isStart && *letter >= 'a' ? static_cast<char>(*letter - 'a' + 'A') : *letter;
    isStart = *letter == ' ';
  }
  return name;
}

/// A table for narrow terminals: removes as few of the `droppable` columns as necessary.
std::string FittingTable(Json rows, const std::vector<const char*>& droppable, int width,
                         bool color) {
  for (const char* column : droppable) {
    const std::string text = TableText(rows, std::numeric_limits<int>::max(), {}, false);
    // The rule below the headings is as wide as the table.
    const std::size_t rule = text.find('\n') + 1;
    if (text.empty() || static_cast<int>(text.find('\n', rule) - rule) <= width) break;
    for (Json& row : rows) row.erase(column);
  }
  return TableText(rows, width, {}, color);
}

/// One line for each fact that has a value or a reason for its absence.
Json FactsOf(const Adapter& adapter) {
  Json facts = Json::object();
  for (const AdapterFact name : kStatusFacts) {
    const Fact& fact = adapter.Get(name);
    std::string text = fact.value;
    if (text.empty() && !fact.why.empty()) text = "not known: " + fact.why;
    if (text.empty()) continue;
    if (name == AdapterFact::kSignal && adapter.signal) text = Bars(*adapter.signal) + " " + text;
    facts[LabelOf(name)] = text + (fact.isInvented ? " (made up)" : "");
  }
  return facts;
}

}  // namespace

Json AdapterRows(const Machine& machine) {
  Json rows = Json::array();
  for (const Adapter& adapter : machine.adapters) {
    Json row = {{"Adapter", adapter.key}, {"State", OrNull(StateOf(adapter))}};
    for (std::size_t fact = 0; fact < adapter.facts.size(); ++fact) {
      const auto name = static_cast<AdapterFact>(fact);
      row[MemberName(name)] = OrNull(adapter.Get(name).value);
    }
    rows.push_back(std::move(row));
  }
  return rows;
}

Json NetworkRows(const Machine& machine) {
  Json rows = Json::array();
  for (const Network* network : Sorted(machine.networks)) {
    rows.push_back({{"Adapter", network->adapter},
                    {"Network", OrNull(network->name)},
                    {"AccessPoint", OrNull(network->mac)},
                    {"Signal", OrNull(network->signal)},
                    {"Channel", OrNull(network->channel)},
                    {"Standard", OrNull(network->standard)},
                    {"Mode", OrNull(network->mode)},
                    {"Security", OrNull(network->security)},
                    {"Available", OrNull(network->available)},
                    {"Associated", network->associated}});
  }
  return rows;
}

std::string AdapterTable(const Machine& machine, int width, bool color) {
  Json rows = Json::array();
  for (const Adapter& adapter : machine.adapters) {
    Json row = {{"Adapter", adapter.key}, {"State", StateOf(adapter).value_or(kNotKnown)}};
    for (const AdapterFact fact : kTableFacts) row[LabelOf(fact)] = Shown(adapter, fact);
    rows.push_back(std::move(row));
  }
  return FittingTable(std::move(rows), {"Access point", "Rate"}, width, color);
}

std::string NetworkTable(const Machine& machine, int width, bool color) {
  const bool isOfOne = machine.adapters.size() < 2;
  Json rows = Json::array();
  for (const Network* network : Sorted(machine.networks)) {
    Json row = {{"*", network->associated ? "*" : ""}, {"Network", NameOf(*network)}};
    row["Signal"] = network->signal ? Bars(*network->signal) : "";
    row["dBm"] = network->signal ? std::to_string(*network->signal) : kNotKnown;
    row["Channel"] = network->channel ? std::to_string(*network->channel) : kNotKnown;
    // Without the cipher, which would make the column wide.
    const std::string security = network->security.substr(0, network->security.find(','));
    row["Security"] = security.empty() ? kNotKnown : security;
    row["Access point"] = network->mac;
    if (!isOfOne) row["Adapter"] = network->adapter;
    rows.push_back(std::move(row));
  }
  return FittingTable(std::move(rows), {"Access point", "Channel"}, width, color);
}

std::string StatusText(const Machine& machine, int width, bool color) {
  std::string text;
  for (const std::string& line : {machine.source.Title(), machine.source.Nature()}) {
    if (!line.empty()) text += VisibleText(line) + "\n";
  }
  for (const Adapter& adapter : machine.adapters) {
    text += (text.empty() ? "" : "\n") + adapter.title + ": " +
            StateOf(adapter).value_or("state not known: " + adapter.whyUnknown) + "\n";
    const Json facts = FactsOf(adapter);
    for (const auto& [label, value] : facts.items()) {
      constexpr int kColumn = 15;
      const std::string blanks(static_cast<std::size_t>(std::max(kColumn - DisplayWidth(label), 1)),
                               ' ');
      text += "  " + label + blanks + value.get<std::string>() + "\n";
    }
  }
  if (machine.networks.empty()) return text;
  return text + "\nNetworks around\n\n" + NetworkTable(machine, width, color);
}

std::vector<std::string> Unknowns(const Machine& machine) {
  std::vector<std::string> unknowns;
  if (!machine.whyMoreAdapters.empty()) {
    unknowns.push_back((machine.adapters.empty() ? "whether there are adapters is not known: "
                                                 : "there may be more adapters: ") +
                       machine.whyMoreAdapters);
  } else if (machine.adapters.empty()) {
    unknowns.emplace_back("there is no adapter");
  }
  for (const Adapter& adapter : machine.adapters) {
    const std::string who = "adapter " + adapter.key + ": ";
    if (!StateOf(adapter))
      unknowns.push_back(who + "its state is not known: " + adapter.whyUnknown);
    if (adapter.whyUnheard.empty()) continue;
    unknowns.push_back(who +
                       (adapter.networks.empty() ? "its networks are not known: "
                                                 : "it may hear more networks: ") +
                       adapter.whyUnheard);
  }
  return unknowns;
}

}  // namespace host
