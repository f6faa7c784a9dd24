#include "host/report/network_section.h"

#include <algorithm>
#include <map>

#include "host/report/findings.h"
#include "host/report/signal_chart.h"

namespace host {
namespace {

struct Column {
  const char* heading;
  const char* kind;  ///< how the page's script sorts it
};

constexpr Column kColumns[] = {
    {"Network", "text"},  {"Access point", "text"}, {"Channel", "number"},  {"Signal", "number"},
    {"Standard", "text"}, {"Security", "text"},     {"Overlaps", "number"}, {"Available", "text"},
};

std::string Shown(const std::optional<int>& number) {
  return number ? std::to_string(*number) : "\u2013";
}

/// How strong a signal is; the text beside it says the same.
void WriteMeter(Html& html, int signal) {
  const int length = std::clamp(signal, kLowestSignal, kHighestSignal) - kLowestSignal;
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

void WriteRow(Html& html, const Network& network, const std::string& id, int overlapping,
              const std::string& adapterTitle) {
  html.Open("tr", {{"data-network", id}, {"class", network.associated ? "associated" : "network"}});
  html.Open("th", {{"scope", "row"}, {"data-value", network.name}});
  if (network.name.empty()) {
    html.Element("i", {}, "hidden");
  } else {
    html.Element("bdi", {}, network.name);
  }
  if (network.associated) html.Text(" ").Element("span", {{"class", "tag"}}, "associated");
  html.Close();
  html.Open("td").Element("code", {}, network.mac).Close();
  WriteNumber(html, network.channel);
  html.Open("td", {{"class", "signal"},
                   {"data-value", network.signal ? std::to_string(*network.signal) : "-999"}});
  if (network.signal) {
    WriteMeter(html, *network.signal);
    html.Element("span", {}, std::to_string(*network.signal) + " dBm");
  }
  html.Close();
  WriteCell(html, network.standard + (network.mode == "Ad hoc" ? ", ad hoc" : ""));
  const bool isWeak =
      network.protection == Protection::kOpen || network.protection == Protection::kWep;
  html.Open("td", {{"class", isWeak ? "weak" : "security"}})
      .Text(network.security.empty() ? "\u2013" : network.security)
      .Close();
  WriteNumber(html, overlapping);
  WriteCell(html, network.available ? "yes" : "no");
  if (!adapterTitle.empty()) WriteCell(html, adapterTitle);
  html.Close().NewLine();
}

void WriteTable(Html& html, const Json& dump, const std::vector<Bell>& bells,
                const std::string& section, const std::string& title, bool hasAdapters) {
  html.Open("p", {{"class", "filter"}, {"hidden", ""}});
  html.Element("label", {{"for", "filter-" + section}}, "Filter");
  html.Empty("input", {{"type", "search"},
                       {"id", "filter-" + section},
                       {"autocomplete", "off"},
                       {"spellcheck", "false"},
                       {"placeholder", "Name, address, security"}});
  html.Element("output", {{"for", "filter-" + section}}, "").Close().NewLine();
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
  std::map<std::string, std::string> titles;
  for (const Bell& bell : bells) {
    const auto [place, isNew] = titles.try_emplace(bell.network->adapter);
    if (isNew && hasAdapters) place->second = AdapterTitle(dump, bell.network->adapter);
  }
  // So many networks of an adapter have their centre there.
  std::map<std::pair<std::string, int>, int> heard;
  for (const Bell& bell : bells) {
    if (bell.network->centre) ++heard[{bell.network->adapter, *bell.network->centre}];
  }
  for (const Bell& bell : bells) {
    const Network& network = *bell.network;
    int overlapping = 0;
    if (network.centre) {
      overlapping = -1;  // itself
      const auto end = heard.lower_bound({network.adapter, *network.centre + kChannelWidth});
      auto next = heard.upper_bound({network.adapter, *network.centre - kChannelWidth});
      for (; next != end; ++next) overlapping += next->second;
    }
    WriteRow(html, network, bell.id, overlapping, titles.at(network.adapter));
  }
  html.Close().Close().Close().NewLine();
}

void WriteChart(Html& html, Spectrum spectrum, const std::vector<Bell>& bells,
                const std::string& id, const std::string& title) {
  html.Open("figure");
  html.Open("div",
            {{"class", "wide"}, {"role", "region"}, {"tabindex", "0"}, {"aria-label", title}});
  DrawSignalChart(html, spectrum, bells, id, title);
  html.Close();
  html.Open("figcaption").Text(title + ". A bell is 20 MHz wide and as high as the signal.");
  html.Open("span", {{"class", "keys"}});
  html.Element("span", {{"class", "key associated"}}, "Associated");
  html.Element("span", {{"class", "key unprotected"}}, "Open or WEP");
  html.Element("span", {{"class", "key"}}, "Encrypted or unknown");
  html.Close().Close().Close().NewLine();
}

}  // namespace

void WriteNetworkSection(Html& html, const Json& dump, const std::vector<Network>& networks,
                         Spectrum spectrum) {
  std::vector<Bell> bells;
  std::vector<std::string> adapters;
  std::map<std::string, std::vector<Bell>> byAdapter;
  for (std::size_t index = 0; index < networks.size(); ++index) {
    const Network& network = networks[index];
    if (network.spectrum != spectrum) continue;
    const Bell& bell = bells.emplace_back(Bell{&network, std::to_string(index)});
    if (byAdapter[network.adapter].empty()) adapters.push_back(network.adapter);
    byAdapter[network.adapter].push_back(bell);
  }
  if (bells.empty()) return;
  const std::string section = SpectrumId(spectrum);
  html.Open("section", {{"id", section}, {"aria-labelledby", section + "-title"}});
  html.Open("h2", {{"id", section + "-title"}}).Text(SpectrumTitle(spectrum) + " ");
  html.Element("span", {{"class", "count"}},
               std::to_string(bells.size()) + (bells.size() == 1 ? " network" : " networks"));
  html.Close().NewLine();
  const bool hasAdapters = adapters.size() > 1;
  if (spectrum != Spectrum::kUnknown) {
    for (const std::string& adapter : adapters) {
      std::string title = "Signal by channel in the " + SpectrumTitle(spectrum) + " band";
      if (hasAdapters) title += ", " + AdapterTitle(dump, adapter);
      WriteChart(html, spectrum, byAdapter[adapter],
                 section + "-chart-" + byAdapter[adapter].front().id, title);
    }
  }
  std::ranges::stable_sort(bells, [](const Bell& left, const Bell& right) {
    return left.network->signal > right.network->signal;
  });
  WriteTable(html, dump, bells, section, "Networks, " + SpectrumTitle(spectrum), hasAdapters);
  html.Close().NewLine();
}

}  // namespace host
