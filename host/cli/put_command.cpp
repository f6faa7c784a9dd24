#include <algorithm>

#include "host/cli/assign.h"
#include "host/cli/commands.h"
#include "host/cli/show.h"

namespace host {
namespace {

bool IsWritable(const PropertyDeclaration& property) {
  return property.qualifiers.Flag("write");
}

Json ValueOf(const CimObject& object, std::size_t property) {
  return ToJson(object.info().declaration.properties[property].type, object.Value(property));
}

std::string Shown(const Json& value) {
  return value.is_null() ? "NULL" : CellText(value);
}

/// The result for one property: the provider may apply less than requested without an error.
std::string Verdict(const Json& old, const Json& asked, const Json& now) {
  if (now == asked) return old == asked ? "as it was" : "done";
  return (now == old ? "refused, still " : "now ") + Shown(now);
}

}  // namespace

ExitStatus RunPut(const Command& command, CommandContext& context) {
  const std::string path = command.Text("PATH");
  const std::vector<std::string> assignments = command.All("NAME=VALUE");
  // Checked before the provider is called.
  if (const ClassInfo* info = context.repository.FindClass(ClassNameOfPath(path))) {
    CimObject trial(*info);
    Assign(assignments, &trial, IsWritable);
  }
  const Outcome found = context.session->Get(path);
  if (FAILED(found.status)) return context.ReportOf(path, path, found.status);
  if (found.objects.empty()) {
    return context.Fail(kNotFound, path + ": the provider gave no instance");
  }
  CimObject asked = found.objects.front();
  const std::vector<std::size_t> named = Assign(assignments, &asked, IsWritable);
  ExitStatus status = context.ReportOf("put " + path, path, context.session->Put(asked).status);
  const Outcome after = context.session->Get(path);
  if (FAILED(after.status) || after.objects.empty()) {
    return Worse(status, context.ReportOf("reading back " + path, path, after.status));
  }
  Json rows = Json::array();
  std::size_t width = 0;
  for (const std::size_t property : named) {
    const std::string& name = asked.info().declaration.properties[property].name;
    width = std::max(width, name.size());
    rows.push_back({{"Property", name},
                    {"Old", ValueOf(found.objects.front(), property)},
                    {"Asked", ValueOf(asked, property)},
                    {"New", ValueOf(after.objects.front(), property)}});
    const Json& row = rows.back();
    if (row["New"] != row["Asked"]) status = Worse(status, kRefused);
  }
  if (status == kSuccess) TellThatItEnds(context);
  if (command.format != OutputFormat::kTable) {
    context.output << FormatRows(rows, command.format, context.width, {}, context.color);
    return status;
  }
  for (const Json& row : rows) {
    const std::string name = row["Property"];
    context.output << name << std::string(width - name.size() + 2, ' ') << Shown(row["Old"])
                   << " \xE2\x86\x92 " << Shown(row["Asked"]) << "  "
                   << Verdict(row["Old"], row["Asked"], row["New"]) << '\n';
  }
  return status;
}

}  // namespace host
