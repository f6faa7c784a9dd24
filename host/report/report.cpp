#include "host/report/report.h"

#include "host/format/format.h"
#include "host/report/adapter_section.h"
#include "host/report/class_section.h"
#include "host/report/findings.h"
#include "host/report/html.h"
#include "host/report/network_section.h"
#include "platform/embedded_text.h"

EMBEDDED_TEXT(report_css)
EMBEDDED_TEXT(report_js)

namespace host {
namespace {

constexpr const char* kTitle = "WiFi report";

constexpr const char* WordOf(Weight weight) {
  switch (weight) {
    case Weight::kProblem:
      return "Problem";
    case Weight::kAttention:
      return "Attention";
    default:
      return "Note";
  }
}

constexpr const char* StyleOf(Weight weight) {
  switch (weight) {
    case Weight::kProblem:
      return "problem";
    case Weight::kAttention:
      return "attention";
    default:
      return "note";
  }
}

void WriteHead(Html& html) {
  html.Open("head").NewLine();
  html.Empty("meta", {{"charset", "utf-8"}}).NewLine();
  // Only the page's own sheet and script: whatever else may have got in has no effect.
  html.Empty("meta", {{"http-equiv", "Content-Security-Policy"},
                      {"content",
                       "default-src 'none'; style-src '" REPORT_CSS_HASH
                       "'; script-src '" REPORT_JS_HASH "'; base-uri 'none'; form-action 'none'"}});
  html.NewLine();
  html.Empty("meta", {{"name", "viewport"}, {"content", "width=device-width, initial-scale=1"}});
  html.Empty("meta", {{"name", "color-scheme"}, {"content", "light dark"}}).NewLine();
  html.Element("title", {}, kTitle).NewLine();
  html.Open("style").Trusted(embedded::report_css()).Close().NewLine();
  html.Close().NewLine();
}

void WriteNavigation(Html& html, const std::vector<Network>& networks) {
  const auto link = [&](const std::string& id, const std::string& text) {
    html.Open("li").Element("a", {{"href", "#" + id}}, text).Close();
  };
  html.Open("nav", {{"aria-label", "Sections"}}).Open("ul");
  link("findings", "What stands out");
  link(kAdaptersId, "Adapters");
  for (const Spectrum spectrum : {Spectrum::k24GHz, Spectrum::k5GHz, Spectrum::kUnknown}) {
    for (const Network& network : networks) {
      if (network.spectrum != spectrum) continue;
      link(SpectrumId(spectrum), SpectrumTitle(spectrum));
      break;
    }
  }
  link("classes", "Classes");
  html.Close().Close().NewLine();
}

/// When and where the dump was made, as far as it says so.
void WriteOrigin(Html& html, const Json& origins) {
  for (const Json& origin : origins) {
    const std::string time = TextOf(origin, "Time");
    std::string shown = time.substr(0, time.find('Z'));
    if (const std::size_t middle = shown.find('T'); middle != std::string::npos)
      shown[middle] = ' ';
    html.Element("time", {{"datetime", time}}, shown + " UTC");
    for (const auto& [label, property] :
         {std::pair("wmihost ", "Version"), std::pair("system ", "OsVersion"),
          std::pair("library ", "LibraryVersion")}) {
      const std::string value = TextOf(origin, property);
      if (!value.empty()) html.Text(std::string(" \u00B7 ") + label + value);
    }
  }
}

void WriteFindings(Html& html, const std::vector<Finding>& findings) {
  html.Open("section", {{"id", "findings"}, {"aria-labelledby", "findings-title"}});
  html.Element("h2", {{"id", "findings-title"}}, "What stands out").NewLine();
  if (findings.empty()) html.Element("p", {}, "Nothing: every adapter is associated and well.");
  html.Open("ul", {{"class", "findings"}}).NewLine();
  for (const Finding& finding : findings) {
    html.Open("li", {{"class", StyleOf(finding.weight)}});
    html.Element("span", {{"class", "weight"}}, WordOf(finding.weight)).Open("div");
    html.Open("a", {{"href", "#" + finding.place}}).Element("bdi", {}, finding.headline).Close();
    if (!finding.detail.empty()) html.Element("p", {}, finding.detail);
    html.Close().Close().NewLine();
  }
  html.Close().Close().NewLine();
}

}  // namespace

std::string ReportPage(const Repository& repository, const Json& dump) {
  const std::vector<Network> networks = NetworksOf(dump);
  Html html;
  html.Trusted("<!DOCTYPE html>\n").Open("html", {{"lang", "en"}}).NewLine();
  WriteHead(html);
  html.Open("body").NewLine();
  html.Element("a", {{"class", "skip"}, {"href", "#main"}}, "Skip to the content").NewLine();
  html.Open("header").Element("h1", {}, kTitle);
  html.Open("p", {{"class", "made"}});
  WriteOrigin(html, InstancesOf(dump, "wmihost"));
  html.Close().NewLine();
  WriteNavigation(html, networks);
  html.Close().Open("main", {{"id", "main"}}).NewLine();
  WriteFindings(html, FindingsOf(dump, networks));
  WriteAdapterSection(html, dump, networks);
  for (const Spectrum spectrum : {Spectrum::k24GHz, Spectrum::k5GHz, Spectrum::kUnknown}) {
    WriteNetworkSection(html, dump, networks, spectrum);
  }
  WriteClassSection(html, repository, dump);
  html.Close().NewLine();
  html.Open("footer")
      .Open("p")
      .Text("This page holds the whole dump, in the element wifi-dump.")
      .Close()
      .Close()
      .NewLine();
  html.Open("script", {{"type", "application/json"}, {"id", "wifi-dump"}});
  html.Json(JsonText(dump)).Close().NewLine();
  html.Open("script").Trusted(embedded::report_js()).Close().NewLine();
  html.Close().Close().NewLine();
  return html.markup();
}

}  // namespace host
