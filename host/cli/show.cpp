#include "host/cli/show.h"

#include "host/cli/provider_host.h"
#include "host/format/sort.h"
#include "host/report/terminal_chart.h"

namespace host {
namespace {

constexpr const char* kPathName = "__RELPATH";

/// The value of a property in each object.
std::vector<Json> ValuesOf(const std::vector<CimObject>& objects, const std::string& name) {
  std::vector<Json> values;
  for (const CimObject& object : objects) {
    const Json row = RowOf(object, {name}, false);
    values.push_back(row.value(name, Json()));
  }
  return values;
}

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

std::vector<std::string> FieldsOf(const ClassInfo* info, const Command& command) {
  std::string sort = command.Text("--sort");
  if (sort.starts_with('-')) sort.erase(0, 1);
  if (!sort.empty()) FieldsOf(info, {sort});
  return FieldsOf(info, command.fields);
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

RowsShown::RowsShown(const CommandContext& context, const Command& command,
                     std::string_view className, std::vector<std::string> fields)
    : context_(context), command_(command), fields_(std::move(fields)) {
  const bool isOpen = command.format == OutputFormat::kTable && fields_.empty();
  if (isOpen && !command.allFields) view_ = ViewOf(className);
  sort_ = command.Find("--sort").value_or(view_ == nullptr ? "" : view_->sort);
  descending_ = sort_.starts_with('-');
  if (descending_) sort_.erase(0, 1);
  if (const ClassInfo* info = context.repository.FindClass(className);
      info != nullptr && !sort_.empty()) {
    sort_ = FieldsOf(info, {sort_}).front();
  }
}

void RowsShown::Write(const Json& rows) const {
  std::vector<std::string> columns = fields_;
  if (view_ != nullptr) columns = ColumnsOfView(*view_, rows);
  context_.output << FormatRows(rows, command_.format, context_.width,
                                ColumnsOf(columns, command_.Has("--paths")), context_.color);
  if (view_ == nullptr || !context_.isTerminal || rows.empty()) return;
  const std::size_t shown = columns.size() + (command_.Has("--paths") ? 1 : 0);
  const std::size_t all = NamesOf(rows).size();
  if (all == shown) return;
  WriteError(context_.errors, std::to_string(all - shown) + " more properties: --fields all");
}

ExitStatus Show(CommandContext& context, const std::string& what, const std::string& classOrPath,
                const Outcome& outcome, const Command& command,
                const std::vector<std::string>& fields, const ClassInfo* listed) {
  if (SUCCEEDED(outcome.status) || !outcome.objects.empty()) {
    if (command.format == OutputFormat::kChart) {
      context.output << ChartText(RowsOf(outcome.objects, {}, false), context.width);
    } else {
      const RowsShown shown(context, command, listed == nullptr ? "" : listed->name(), fields);
      const std::vector<CimObject>& objects = outcome.objects;
      Json rows = Json::array();
      for (const std::size_t index : shown.Order(
               objects.size(), [&](const std::string& name) { return ValuesOf(objects, name); })) {
        rows.push_back(RowOf(objects[index], fields, command.Has("--paths")));
      }
      shown.Write(rows);
    }
  }
  return context.ReportOf(what, classOrPath, outcome.status);
}

void TellThatItEnds(CommandContext& context) {
  if (context.inShell || context.provider == nullptr || !context.provider->IsSimulated()) return;
  context.Fail(kSuccess,
               "the machine is simulated and ends with this command; in a shell it goes on");
}

ExitStatus CheckReturnValue(CommandContext& context, const std::string& what, const Json& out) {
  const Json value = out.is_object() ? out.value("ReturnValue", Json()) : Json();
  if (!value.is_null() && value != false) return kSuccess;
  return context.Fail(kRefused, what + ": its ReturnValue is " +
                                    (value.is_null() ? "missing: it failed" : "FALSE"));
}

}  // namespace host
