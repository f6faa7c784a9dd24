#include "host/cli/show.h"

#include "host/report/terminal_chart.h"

namespace host {
namespace {

constexpr const char* kPathName = "__RELPATH";

}  // namespace

Json RowOf(const CimObject& object, const std::vector<std::string>& fields, bool paths) {
  if (fields.empty() && !paths) return object.ToJson();
  Json row = Json::object();
  if (paths) row[kPathName] = object.SystemValue(kPathName);
  const Json all = object.ToJson();
  if (fields.empty()) row.update(all);
  for (const std::string& field : fields) {
    if (SystemPropertyName(field)) {
      row[field] = object.SystemValue(field);
    } else if (const auto found = all.find(field); found != all.end()) {
      row[field] = *found;
    }
  }
  return row;
}

std::vector<std::string> ColumnsOf(const std::vector<std::string>& fields, bool paths) {
  std::vector<std::string> names = fields;
  if (paths && !names.empty()) names.insert(names.begin(), kPathName);
  return names;
}

Json RowsOf(const std::vector<CimObject>& objects, const std::vector<std::string>& fields,
            bool paths) {
  Json rows = Json::array();
  for (const CimObject& object : objects) rows.push_back(RowOf(object, fields, paths));
  return rows;
}

std::vector<std::string> FieldsOf(const ClassInfo* info, const std::vector<std::string>& fields) {
  if (info == nullptr) return fields;
  std::vector<std::string> spelled;
  for (const std::string& field : fields) {
    const std::optional<std::string> system = SystemPropertyName(field);
    const std::optional<std::size_t> property = info->FindProperty(field);
    if (!system && !property) throw ValueError(info->NoProperty(field));
    spelled.push_back(system ? *system : info->declaration.properties[*property].name);
  }
  return spelled;
}

void CheckChart(const Repository& repository, const Command& command, const ClassInfo* info) {
  if (command.format != OutputFormat::kChart) return;
  if (!command.fields.empty()) throw ValueError("--format chart takes no --fields");
  if (info == nullptr || CanChart(*info)) return;
  std::string charted;
  for (const ClassInfo* each : repository.served()) {
    if (CanChart(*each)) charted += (charted.empty() ? "" : " and ") + each->name();
  }
  throw ValueError(info->name() + " has no channel and signal to draw; --format chart draws " +
                   charted);
}

ExitStatus Show(CommandContext& context, const std::string& what, const std::string& classOrPath,
                const Outcome& outcome, const Command& command,
                const std::vector<std::string>& fields) {
  if (SUCCEEDED(outcome.status) || !outcome.objects.empty()) {
    if (command.format == OutputFormat::kChart) {
      context.output << ChartText(RowsOf(outcome.objects, {}, false), context.width);
    } else {
      const bool paths = command.Has("--paths");
      context.output << FormatRows(RowsOf(outcome.objects, fields, paths), command.format,
                                   context.width, ColumnsOf(fields, paths), context.color);
    }
  }
  return context.ReportOf(what, classOrPath, outcome.status);
}

ExitStatus CheckReturnValue(CommandContext& context, const std::string& what, const Json& out) {
  const Json value = out.is_object() ? out.value("ReturnValue", Json()) : Json();
  if (!value.is_null() && value != false) return kSuccess;
  return context.Fail(kRefused, what + ": its ReturnValue is " +
                                    (value.is_null() ? "missing: it failed" : "FALSE"));
}

}  // namespace host
