#include "host/report/class_section.h"

#include "host/format/format.h"
#include "host/model/machine.h"
#include "host/report/places.h"

namespace host {
namespace {

/// A table with more properties is transposed if it has few instances.
constexpr std::size_t kManyProperties = 7;
constexpr std::size_t kFewInstances = 4;

/// The instances of a class and the values among them that were invented.
struct ClassRows {
  const std::string& name;
  const Json& rows;
  const Source& source;
  const char* key;  ///< property with the adapter's key; null for a class without adapters

  bool IsInvented(const Json& row, const std::string& property) const {
    const std::string adapter = key == nullptr ? "" : TextOf(row, key);
    return property != (key == nullptr ? "" : key) && source.IsInvented(name, property, adapter);
  }
};

void WriteValue(Html& html, const ClassRows& shown, const Json& row, const std::string& property) {
  const auto found = row.find(property);
  if (found == row.end() || found->is_null()) {
    html.Element("td", {{"class", "none"}}, "no value");
    return;
  }
  html.Open("td").Element("bdi", {}, CellText(*found));
  if (shown.IsInvented(row, property)) WriteInventedMark(html);
  html.Close();
}

void WriteTurned(Html& html, const ClassRows& shown, const std::vector<std::string>& names) {
  html.Open("tbody");
  for (const std::string& name : names) {
    html.Open("tr").Element("th", {{"scope", "row"}}, name);
    for (const Json& row : shown.rows) WriteValue(html, shown, row, name);
    html.Close().NewLine();
  }
  html.Close();
}

void WriteUpright(Html& html, const ClassRows& shown, const std::vector<std::string>& names) {
  html.Open("thead").Open("tr");
  for (const std::string& name : names) html.Element("th", {{"scope", "col"}}, name);
  html.Close().Close().Open("tbody").NewLine();
  for (const Json& row : shown.rows) {
    html.Open("tr");
    for (const std::string& name : names) WriteValue(html, shown, row, name);
    html.Close().NewLine();
  }
  html.Close();
}

void WriteClass(Html& html, const ClassInfo& info, const Dump& dump, const Source& source) {
  const std::string& name = info.name();
  const ClassRows shown = {name, dump.Rows(name), source, AdapterKeyOf(name)};
  std::string failure = FailureOf(dump, name);
  if (!dump.Has(name)) failure = "the dump has no " + name;
  html.Open("details", {{"id", ClassId(name)}}).Open("summary");
  html.Element("code", {}, name).Text(" ");
  const std::string count = std::to_string(shown.rows.size());
  html.Element("span", {{"class", "count"}},
               failure.empty()      ? count
               : shown.rows.empty() ? "not known"
                                    : "at least " + count);
  html.Close().NewLine();
  html.Element("p", {{"class", "description"}}, info.declaration.qualifiers.Text("Description"));
  if (!failure.empty()) html.Element("p", {{"class", "failure"}}, "Not known: " + failure + ".");
  const std::vector<std::string> names = NamesOf(shown.rows);
  if (!names.empty()) {
    const bool isTurned = names.size() > kManyProperties && shown.rows.size() <= kFewInstances;
    html.Open("div",
              {{"class", "wide"}, {"role", "region"}, {"tabindex", "0"}, {"aria-label", name}});
    html.Open("table", {{"class", isTurned ? "turned" : "upright"}});
    html.Element("caption", {{"class", "unseen"}}, "Instances of " + name);
    (isTurned ? WriteTurned : WriteUpright)(html, shown, names);
    html.Close().Close();
  }
  html.Close().NewLine();
}

}  // namespace

void WriteClassSection(Html& html, const Repository& repository, const Dump& dump,
                       const Source& source) {
  html.Open("section", {{"id", "classes"}, {"aria-labelledby", "classes-title"}});
  html.Element("h2", {{"id", "classes-title"}}, "Classes").NewLine();
  for (const ClassInfo* info : repository.served()) {
    WriteClass(html, *info, dump, source);
  }
  html.Close().NewLine();
}

}  // namespace host
