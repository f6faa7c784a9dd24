#include "host/report/adapter_section.h"

#include <algorithm>

#include "host/model/wording.h"
#include "host/report/places.h"

namespace host {
namespace {

constexpr int kBarLength = 100;

void WriteLine(Html& html, const std::string& label, const std::string& value,
               const std::string& why, bool isInvented = false) {
  html.Open("div").Element("dt", {}, label);
  html.Open("dd");
  if (value.empty() && !why.empty()) {
    html.Element("span", {{"class", "unknown"}}, "not known: " + why);
  } else {
    html.Element("bdi", {}, value);
    if (isInvented) WriteInventedMark(html);
  }
  html.Close().Close().NewLine();
}

/// The known facts; then the unknown ones, with each reason once.
void WriteFacts(Html& html, const Adapter& adapter) {
  std::vector<std::pair<std::string, std::string>> unknown;  // reason and labels
  for (std::size_t index = 0; index < adapter.facts.size(); ++index) {
    const Fact& fact = adapter.facts[index];
    const std::string label = LabelOf(static_cast<AdapterFact>(index));
    if (!fact.value.empty()) WriteLine(html, label, fact.value, "", fact.isInvented);
    if (fact.why.empty()) continue;
    const auto known =
        std::ranges::find(unknown, fact.why, &std::pair<std::string, std::string>::first);
    if (known == unknown.end()) {
      unknown.emplace_back(fact.why, label);
    } else {
      known->second += ", " + label;
    }
  }
  for (const auto& [why, labels] : unknown) WriteLine(html, labels, "", why);
}

/// What the adapter hears; never a number that was not counted.
void WriteHearing(Html& html, const Adapter& adapter) {
  const std::size_t count = adapter.networks.size();
  std::string heard = Counted(count, "network");
  if (adapter.whyUnheard.empty()) return WriteLine(html, "Hears", heard, "");
  if (count == 0) return WriteLine(html, "Hears", "", adapter.whyUnheard);
  WriteLine(html, "Hears", "at least " + heard + ": " + adapter.whyUnheard, "");
}

std::string StateOf(const Adapter& adapter) {
  std::string state = !adapter.isAssociated   ? "Association not known: " + adapter.whyUnknown
                      : *adapter.isAssociated ? "Associated"
                                              : "Not associated";
  if (adapter.radioOn == false || adapter.hardwareRadioOn == false) state += ", radio off";
  return state;
}

struct Bar {
  std::string label;
  std::uint64_t value;
  std::string shown;
};

/// Bars with lengths in proportion to their values, below a heading.
void WriteBars(Html& html, const std::string& heading, const std::vector<Bar>& bars) {
  const std::uint64_t most = std::ranges::max(bars, {}, &Bar::value).value;
  html.Open("table", {{"class", "bars"}}).Element("caption", {}, heading).Open("tbody").NewLine();
  for (const Bar& bar : bars) {
    const auto length = most == 0 ? 0 : bar.value * kBarLength / most;
    html.Open("tr").Element("th", {{"scope", "row"}}, bar.label);
    html.Open("td").Open("svg", {{"class", "meter"},
                                 {"viewBox", "0 0 100 6"},
                                 {"preserveAspectRatio", "none"},
                                 {"aria-hidden", "true"}});
    html.Empty("rect", {{"class", "track"}, {"width", "100"}, {"height", "6"}});
    html.Empty("rect", {{"width", std::to_string(length)}, {"height", "6"}});
    html.Close().Close();
    html.Element("td", {{"class", "number"}}, bar.shown).Close().NewLine();
  }
  html.Close().Close().NewLine();
}

void WriteRoaming(Html& html, const Adapter& adapter) {
  std::vector<Bar> bars;
  std::uint64_t all = 0;
  for (const Counter& cause : adapter.roamingCauses) {
    if (!cause.value) continue;
    bars.push_back({cause.label, *cause.value, std::to_string(*cause.value)});
    all += *cause.value;
  }
  const std::string times =
      adapter.roamed.value ? Counted(*adapter.roamed.value, "time") : "not known how often";
  if (all > 0) WriteBars(html, "Why it roamed: " + times, bars);
}

void WritePackets(Html& html, const Adapter& adapter) {
  std::vector<Bar> bars;
  std::uint64_t all = 0;
  for (const RatePackets& packets : adapter.packets) {
    const std::uint64_t both = packets.sent + packets.received;
    if (both == 0) continue;
    bars.push_back({packets.rate, both,
                    std::to_string(packets.sent) + " + " + std::to_string(packets.received)});
    all += both;
  }
  if (all > 0) WriteBars(html, "Packets by rate (in the driver's unit): sent + received", bars);
}

}  // namespace

void WriteAdapterSection(Html& html, const Machine& machine) {
  html.Open("section", {{"id", kAdaptersId}, {"aria-labelledby", "adapters-title"}});
  html.Element("h2", {{"id", "adapters-title"}}, "Adapters").NewLine();
  if (!machine.whyMoreAdapters.empty()) {
    const std::string which =
        machine.adapters.empty() ? "Whether there are adapters" : "Whether there are more adapters";
    html.Element("p", {{"class", "failure"}},
                 which + " is not known: " + machine.whyMoreAdapters + ".");
  }
  html.Open("div", {{"class", "cards"}});
  for (const Adapter& adapter : machine.adapters) {
    html.Open("article", {{"class", adapter.isAssociated == true ? "card associated" : "card"},
                          {"data-adapter", adapter.key}});
    html.Element("h3", {}, adapter.title);
    html.Element("p", {{"class", "state"}}, StateOf(adapter)).Open("dl");
    WriteFacts(html, adapter);
    WriteHearing(html, adapter);
    html.Close();
    WriteRoaming(html, adapter);
    WritePackets(html, adapter);
    html.Close().NewLine();
  }
  html.Close().Close().NewLine();
}

}  // namespace host
