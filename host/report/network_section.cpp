#include "host/report/network_section.h"

#include <algorithm>
#include <map>
#include <unordered_map>

#include "host/model/wording.h"
#include "host/report/places.h"
#include "host/report/signal_chart.h"

namespace host {
namespace {

constexpr int kMeterBase = -100;  ///< dBm
constexpr int kMeterLength = 70;
constexpr std::size_t kOpenCharts = 8;  ///< adapters whose charts are not collapsed

struct Column {
  const char* heading;
  const char* kind;  ///< the sort order in the page's script
};

constexpr Column kColumns[] = {
    {"Network", "text"},      {"Signal", "number"}, {"Channel", "number"},  {"Security", "text"},
    {"Access point", "text"}, {"Standard", "text"}, {"Overlaps", "number"}, {"Available", "text"},
};

/// The networks of a spectrum by adapter: curves, and networks without a place on a chart.
struct Heard {
  const Adapter* adapter;
  std::vector<Bell> bells = {};
  std::vector<const Network*> misplaced = {};
};

std::string Shown(const std::optional<int>& number) {
  return number ? std::to_string(*number) : "\u2013";
}

/// A bar for the strength of a signal; the text next to it says the same.
void WriteMeter(Html& html, int signal) {
  const int length = std::clamp(signal - kMeterBase, 0, kMeterLength);
  html.Open("svg", {{"class", "meter"}, {"viewBox", "0 0 70 6"}, {"aria-hidden", "true"}})
      .Empty("rect", {{"class", "track"}, {"width", "70"}, {"height", "6"}, {"rx", "3"}})
      .Empty("rect", {{"width", std::to_string(length)}, {"height", "6"}, {"rx", "3"}})
      .Close();
}

void WriteCell(Html& html, const std::string& text) {
  html.Element("td", {}, text);
}

void WriteNumber(Html& html, const std::optional<int>& number) {
  html.Element("td",
               {{"class", "number"}, {"data-value", number ? std::to_string(*number) : "-999"}},
               Shown(number));
}

void WriteName(Html& html, const Network& network) {
  html.Open("th", {{"scope", "row"}, {"data-value", network.name}});
  if (network.name.empty()) {
    html.Element("i", {}, "hidden");
  } else {
    html.Element("bdi", {}, network.name);
  }
  if (!network.utf8Name.empty()) {
    html.Open("span", {{"class", "reading"}}).Text(" as UTF-8: ");
    html.Element("bdi", {{"class", "utf8"}}, network.utf8Name).Close();
  }
  if (network.associated) html.Text(" ").Element("span", {{"class", "tag"}}, "associated");
  html.Close();
}

void WriteRow(Html& html, const Network& network, const std::string& id,
              std::optional<int> overlapping, const std::string& adapterTitle) {
  html.Open("tr", {{"data-network", id}, {"class", network.associated ? "associated" : "network"}});
  WriteName(html, network);
  html.Open("td", {{"class", "signal"},
                   {"data-value", network.signal ? std::to_string(*network.signal) : "-999"}});
  if (network.signal) {
    WriteMeter(html, *network.signal);
    html.Element("span", {}, std::to_string(*network.signal) + " dBm");
  } else {
    html.Text(Shown(network.signal));
  }
  html.Close();
  WriteNumber(html, network.channel);
  const bool isWeak =
      network.protection == Protection::kOpen || network.protection == Protection::kWep;
  html.Open("td", {{"class", isWeak ? "weak" : "security"}})
      .Text(network.security.empty() ? "\u2013" : network.security)
      .Close();
  html.Open("td").Element("code", {}, network.mac).Close();
  WriteCell(html, network.standard + (network.mode == "Ad hoc" ? ", ad hoc" : ""));
  WriteNumber(html, overlapping);
  html.Open("td").Text(!network.available ? "\u2013" : *network.available ? "yes" : "no");
  if (network.available && network.isAvailableInvented) WriteInventedMark(html);
  html.Close();
  if (!adapterTitle.empty()) WriteCell(html, adapterTitle);
  html.Close().NewLine();
}

/// Counts how many networks of an adapter overlap a channel.
class Overlaps {
 public:
  void Add(const Network& network) {
    if (network.centre) ++heard_[network.adapter][*network.centre];
  }
  /// The number of other networks; nullopt for a network without a place.
  std::optional<int> Of(const Network& network) const {
    if (!network.centre) return std::nullopt;
    const std::map<int, int>& centres = heard_.at(network.adapter);
    int overlapping = -1;  // not counting itself
    const auto end = centres.lower_bound(*network.centre + kChannelWidth);
    auto next = centres.upper_bound(*network.centre - kChannelWidth);
    for (; next != end; ++next) overlapping += next->second;
    return overlapping;
  }

 private:
  std::unordered_map<std::string, std::map<int, int>> heard_;  ///< number by adapter and centre
};

void WriteFilter(Html& html, const std::string& section) {
  html.Open("p", {{"class", "filter"}, {"hidden", ""}});
  html.Element("label", {{"for", "filter-" + section}}, "Filter");
  html.Empty("input", {{"type", "search"},
                       {"id", "filter-" + section},
                       {"autocomplete", "off"},
                       {"spellcheck", "false"},
                       {"placeholder", "Name, address, security"}});
  html.Element("output", {{"for", "filter-" + section}}, "").Close().NewLine();
}

struct TableRow {
  const Network* network;
  std::string id;
  const std::string* adapterTitle;
};

void WriteTable(Html& html, const std::vector<TableRow>& rows, const std::string& section,
                const std::string& title, bool hasAdapters) {
  WriteFilter(html, section);
  html.Open("div", {{"class", "wide"},
                    {"role", "region"},
                    {"tabindex", "0"},
                    {"aria-label", title + ", table"}});
  html.Open("table", {{"class", "networks"}});
  html.Element("caption", {}, title).Open("thead").Open("tr");
  for (const Column& column : kColumns) {
    html.Element("th", {{"scope", "col"}, {"data-kind", column.kind}}, column.heading);
  }
  if (hasAdapters) html.Element("th", {{"scope", "col"}, {"data-kind", "text"}}, "Adapter");
  html.Close().Close().Open("tbody").NewLine();
  Overlaps overlaps;
  for (const TableRow& row : rows) overlaps.Add(*row.network);
  for (const TableRow& row : rows) {
    WriteRow(html, *row.network, row.id, overlaps.Of(*row.network),
             hasAdapters ? *row.adapterTitle : "");
  }
  html.Close().Close().Close().NewLine();
}

/// Networks that the chart cannot show, by name, with the reason.
void WriteMisplaced(Html& html, const std::vector<const Network*>& networks) {
  constexpr std::size_t kNamed = 12;
  if (networks.empty()) return;
  html.Open("p", {{"class", "misplaced"}}).Text("Not on the chart: ");
  for (std::size_t index = 0; index < std::min(networks.size(), kNamed); ++index) {
    const Network& network = *networks[index];
    if (index > 0) html.Text(", ");
    html.Element("bdi", {}, network.name.empty() ? "hidden" : network.name);
    html.Text(" (" + WhyNotCharted(network) + ")");
  }
  if (networks.size() > kNamed) {
    html.Text(" and " + std::to_string(networks.size() - kNamed) + " more");
  }
  html.Text(".").Close().NewLine();
}

void WriteChart(Html& html, Spectrum spectrum, const Heard& heard, const std::string& id,
                const std::string& title) {
  html.Open("figure");
  if (!heard.bells.empty()) {
    html.Open("div",
              {{"class", "wide"}, {"role", "region"}, {"tabindex", "0"}, {"aria-label", title}});
    DrawSignalChart(html, spectrum, heard.bells, id, title);
    html.Close();
  }
  html.Open("figcaption").Text(title + ". A bell is 20 MHz wide and as high as the signal.");
  html.Open("span", {{"class", "keys"}});
  html.Element("span", {{"class", "key associated"}}, "Associated");
  html.Element("span", {{"class", "key unprotected"}}, "Open or WEP");
  html.Element("span", {{"class", "key"}}, "Encrypted or unknown");
  html.Element("span", {{"class", "key envelope"}}, "Others of a crowded channel");
  html.Close();
  WriteMisplaced(html, heard.misplaced);
  html.Close().Close().NewLine();
}

void WriteCharts(Html& html, Spectrum spectrum, const std::vector<Heard>& all,
                 const std::string& section) {
  std::size_t shown = 0;
  for (const Heard& heard : all) {
    std::string title = "Signal by channel in the " + SpectrumTitle(spectrum) + " band";
    if (all.size() > 1) title += ", " + heard.adapter->title;
    const std::string id = section + "-chart-" + std::to_string(shown);
    if (shown++ == kOpenCharts) {
      html.Open("details", {{"class", "charts"}});
      html.Element("summary", {}, "Charts of " + Counted(all.size() - kOpenCharts, "more adapter"));
      html.NewLine();
    }
    WriteChart(html, spectrum, heard, id, title);
  }
  if (shown > kOpenCharts) html.Close().NewLine();
}

}  // namespace

void WriteNetworkSection(Html& html, const Machine& machine, Spectrum spectrum) {
  std::vector<Heard> all;
  std::vector<TableRow> rows;
  for (const Adapter& adapter : machine.adapters) {
    Heard heard = {&adapter};
    bool isSilent = true;
    for (const Network* network : adapter.networks) {
      if (network->spectrum != spectrum) continue;
      isSilent = false;
      std::string id = std::to_string(network - machine.networks.data());
      if (WhyNotCharted(*network).empty()) {
        heard.bells.push_back({network, id});
      } else {
        heard.misplaced.push_back(network);
      }
      rows.push_back({network, std::move(id), &adapter.title});
    }
    if (!isSilent) all.push_back(std::move(heard));
  }
  if (rows.empty()) return;
  const std::string section = SpectrumId(spectrum);
  html.Open("section", {{"id", section}, {"aria-labelledby", section + "-title"}});
  html.Open("h2", {{"id", section + "-title"}}).Text(SpectrumTitle(spectrum) + " ");
  html.Element("span", {{"class", "count"}}, Counted(rows.size(), "network"));
  html.Close().NewLine();
  if (spectrum != Spectrum::kUnknown) WriteCharts(html, spectrum, all, section);
  std::ranges::stable_sort(rows, [](const TableRow& left, const TableRow& right) {
    return left.network->signal > right.network->signal;
  });
  WriteTable(html, rows, section, "Networks, " + SpectrumTitle(spectrum), all.size() > 1);
  html.Close().NewLine();
}

}  // namespace host
