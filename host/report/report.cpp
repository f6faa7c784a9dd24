#include "host/report/report.h"

#include <algorithm>

#include "host/format/format.h"
#include "host/model/machine.h"
#include "host/report/adapter_section.h"
#include "host/report/class_section.h"
#include "host/report/html.h"
#include "host/report/network_section.h"
#include "host/report/places.h"
#include "platform/embedded_text.h"

EMBEDDED_TEXT(report_css)
EMBEDDED_TEXT(report_js)

namespace host {
namespace {

constexpr Spectrum kSpectra[] = {Spectrum::k24GHz, Spectrum::k5GHz, Spectrum::kUnknown};

struct WeightWords {
  const char* shown;
  const char* style;
};
// In the order of Weight.
constexpr WeightWords kWeights[] = {
    {"Problem", "problem"}, {"Attention", "attention"}, {"Note", "note"}};

std::string TitleOf(const Source& source) {
  const std::string title = source.Title();
  const bool isSimulated = source.isSimulated == true;
  return "WiFi report" + (title.empty() ? "" : ": " + title) + (isSimulated ? " (simulated)" : "");
}

void WriteHead(Html& html, const std::string& title) {
  html.Open("head").NewLine();
  html.Empty("meta", {{"charset", "utf-8"}}).NewLine();
  // Only the page's own style sheet and script: anything injected has no effect.
  html.Empty("meta", {{"http-equiv", "Content-Security-Policy"},
                      {"content",
                       "default-src 'none'; style-src '" REPORT_CSS_HASH
                       "'; script-src '" REPORT_JS_HASH "'; base-uri 'none'; form-action 'none'"}});
  html.NewLine();
  html.Empty("meta", {{"name", "viewport"}, {"content", "width=device-width, initial-scale=1"}});
  html.Empty("meta", {{"name", "color-scheme"}, {"content", "light dark"}}).NewLine();
  html.Element("title", {}, title).NewLine();
  html.Open("style").Trusted(embedded::report_css()).Close().NewLine();
  html.Close().NewLine();
}

void WriteNavigation(Html& html, const Machine& machine) {
  const auto link = [&](const std::string& id, const std::string& text) {
    html.Open("li").Element("a", {{"href", "#" + id}}, text).Close();
  };
  html.Open("nav", {{"aria-label", "Sections"}}).Open("ul");
  link("findings", "What stands out");
  link(kAdaptersId, "Adapters");
  for (const Spectrum spectrum : kSpectra) {
    if (std::ranges::any_of(machine.networks, [spectrum](const Network& network) {
          return network.spectrum == spectrum;
        })) {
      link(SpectrumId(spectrum), SpectrumTitle(spectrum));
    }
  }
  link("classes", "Classes");
  html.Close().Close().NewLine();
}

/// The machine, and the time and program of the dump, as far as the dump says.
void WriteSource(Html& html, const Source& source) {
  const std::string title = source.Title();
  const std::string nature = source.Nature();
  html.Open("p", {{"class", "source"}});
  if (title.empty() && nature.empty()) {
    html.Text("The dump does not say what machine it is of.");
  } else {
    html.Text("Of ").Element("bdi", {}, title).Text(". ");
    if (!nature.empty()) {
      html.Element("strong", {{"class", source.isSimulated == true ? "simulated" : "real"}},
                   nature);
    }
  }
  html.Close().NewLine();
  html.Open("p", {{"class", "made"}});
  if (!source.time.empty()) {
    std::string shown = source.time.substr(0, source.time.find('Z'));
    if (const std::size_t middle = shown.find('T'); middle != std::string::npos) {
      shown[middle] = ' ';
    }
    html.Element("time", {{"datetime", source.time}}, shown + " UTC");
  }
  for (const auto& [label, value] :
       {std::pair("wmihost ", source.version), std::pair("system ", source.osVersion),
        std::pair("library ", source.libraryVersion)}) {
    if (!value.empty()) html.Text(std::string(" \u00B7 ") + label + value);
  }
  html.Close().NewLine();
}

void WriteFindings(Html& html, const std::vector<Finding>& findings) {
  html.Open("section", {{"id", "findings"}, {"aria-labelledby", "findings-title"}});
  html.Element("h2", {{"id", "findings-title"}}, "What stands out").NewLine();
  if (findings.empty()) html.Element("p", {}, "Nothing: every adapter is associated and well.");
  html.Open("ul", {{"class", "findings"}}).NewLine();
  for (const Finding& finding : findings) {
    const WeightWords& weight = kWeights[static_cast<std::size_t>(finding.weight)];
    html.Open("li", {{"class", weight.style}});
    html.Element("span", {{"class", "weight"}}, weight.shown).Open("div");
    html.Open("a", {{"href", "#" + PlaceOf(finding)}});
    html.Element("bdi", {}, finding.headline).Close();
    if (!finding.detail.empty()) html.Element("p", {}, finding.detail);
    html.Close().Close().NewLine();
  }
  html.Close().Close().NewLine();
}

}  // namespace

void WriteReport(std::ostream& output, const Repository& repository, const Json& json) {
  const Dump dump(json);
  const Machine machine(dump);
  const std::string title = TitleOf(machine.source);
  Html html(output);
  html.Trusted("<!DOCTYPE html>\n").Open("html", {{"lang", "en"}}).NewLine();
  WriteHead(html, title);
  html.Open("body").NewLine();
  html.Element("a", {{"class", "skip"}, {"href", "#main"}}, "Skip to the content").NewLine();
  html.Open("header").Element("h1", {}, "WiFi report").NewLine();
  WriteSource(html, machine.source);
  WriteNavigation(html, machine);
  html.Close().Open("main", {{"id", "main"}}).NewLine();
  WriteFindings(html, machine.findings);
  WriteAdapterSection(html, machine);
  for (const Spectrum spectrum : kSpectra) WriteNetworkSection(html, machine, spectrum);
  WriteClassSection(html, repository, dump, machine.source);
  html.Close().NewLine();
  html.Open("footer")
      .Open("p")
      .Text("This page holds the whole dump, in the element wifi-dump.")
      .Close()
      .Close()
      .NewLine();
  html.Open("script", {{"type", "application/json"}, {"id", "wifi-dump"}});
  EachJsonPiece(json, [&html](std::string_view piece) { html.Json(piece); });
  html.Close().NewLine();
  html.Open("script").Trusted(embedded::report_js()).Close().NewLine();
  html.Close().Close().NewLine();
}

}  // namespace host
