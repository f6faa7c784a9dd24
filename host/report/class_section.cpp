#include "host/report/class_section.h"

#include "host/format/format.h"
#include "host/report/findings.h"

namespace host {
namespace {

/// A table of more properties is turned while so few instances stand side by side.
constexpr std::size_t kManyProperties = 7;
constexpr std::size_t kFewInstances = 4;

void WriteValue(Html& html, const Json& row, const std::string& name) {
  const auto found = row.find(name);
  if (found == row.end() || found->is_null()) {
    html.Element("td", {{"class", "none"}}, "no value");
  } else {
    html.Open("td").Element("bdi", {}, CellText(*found)).Close();
  }
}

void WriteTurned(Html& html, const Json& rows, const std::vector<std::string>& names) {
  html.Open("tbody");
  for (const std::string& name : names) {
    html.Open("tr").Element("th", {{"scope", "row"}}, name);
    for (const Json& row : rows) WriteValue(html, row, name);
    html.Close().NewLine();
  }
  html.Close();
}

void WriteUpright(Html& html, const Json& rows, const std::vector<std::string>& names) {
  html.Open("thead").Open("tr");
  for (const std::string& name : names) html.Element("th", {{"scope", "col"}}, name);
  html.Close().Close().Open("tbody").NewLine();
  for (const Json& row : rows) {
    html.Open("tr");
    for (const std::string& name : names) WriteValue(html, row, name);
    html.Close().NewLine();
  }
  html.Close();
}

void WriteClass(Html& html, const ClassInfo& info, const Json& dump) {
  const std::string& name = info.name();
  const Json& rows = InstancesOf(dump, name);
  html.Open("details", {{"id", ClassId(name)}}).Open("summary");
  html.Element("code", {}, name).Text(" ");
  html.Element("span", {{"class", "count"}}, std::to_string(rows.size())).Close().NewLine();
  html.Element("p", {{"class", "description"}}, info.declaration.qualifiers.Text("Description"));
  const std::string failure = FailureOf(dump, name);
  if (!failure.empty()) html.Element("p", {{"class", "failure"}}, failure);
  const std::vector<std::string> names = NamesOf(rows);
  if (!names.empty()) {
    const bool isTurned = names.size() > kManyProperties && rows.size() <= kFewInstances;
    html.Open("div",
              {{"class", "wide"}, {"role", "region"}, {"tabindex", "0"}, {"aria-label", name}});
    html.Open("table", {{"class", isTurned ? "turned" : "upright"}});
    html.Element("caption", {{"class", "unseen"}}, "Instances of " + name);
    (isTurned ? WriteTurned : WriteUpright)(html, rows, names);
    html.Close().Close();
  }
  html.Close().NewLine();
}

}  // namespace

void WriteClassSection(Html& html, const Repository& repository, const Json& dump) {
  html.Open("section", {{"id", "classes"}, {"aria-labelledby", "classes-title"}});
  html.Element("h2", {{"id", "classes-title"}}, "Classes").NewLine();
  for (const ClassInfo* info : repository.served()) {
    WriteClass(html, *info, dump);
  }
  html.Close().NewLine();
}

}  // namespace host
