#include <algorithm>
#include <utility>

#include "host/cli/assign.h"
#include "host/cli/commands.h"
#include "host/cli/dump_origin.h"
#include "host/cli/dump_output.h"
#include "host/cli/schema_view.h"
#include "host/cli/show.h"

namespace host {

ExitStatus RunEnum(const Command& command, CommandContext& context) {
  const std::string className = command.Text("CLASS");
  const ClassInfo* info = context.repository.FindClass(className);
  CheckChart(context.repository, command, info);
  const std::vector<std::string> fields = FieldsOf(info, command);
  const std::string unknown = info == nullptr ? className : "";
  if (command.format != OutputFormat::kCsv || command.Has("--sort")) {
    Outcome outcome = context.session->Enumerate(className);
    const bool isForPeople =
        command.format == OutputFormat::kTable || command.format == OutputFormat::kChart;
    const std::string why =
        info != nullptr && isForPeople ? WhyEnumerationEnded(context, *info, outcome) : "";
    if (why.empty()) return Show(context, className, unknown, outcome, command, fields, info);
    const HRESULT status = std::exchange(outcome.status, S_OK);
    if (!outcome.objects.empty()) {
      Show(context, className, unknown, outcome, command, fields, info);
    }
    return context.Report(className, status, why);
  }
  // A format without widths: instances need not be kept until the last one has arrived.
  const bool paths = command.Has("--paths");
  CsvRows rows(ColumnsOf(fields, paths));
  const Outcome outcome = context.session->Enumerate(
      className, [&](const CimObject& object) { rows.Add(RowOf(object, fields, paths)); });
  rows.Write(context.output);
  return context.ReportOf(className, unknown, outcome.status);
}

ExitStatus RunGet(const Command& command, CommandContext& context) {
  const std::string path = command.Text("PATH");
  const std::vector<std::string> fields =
      FieldsOf(context.repository.FindClass(ClassNameOfPath(path)), command);
  const Outcome outcome = context.session->Get(path);
  if (SUCCEEDED(outcome.status) && outcome.objects.empty()) {
    return context.Fail(kNotFound, path + ": the provider gave no instance");
  }
  return Show(context, path, path, outcome, command, fields);
}

ExitStatus RunDump(const Command& command, CommandContext& context) {
  ExitStatus status = kSuccess;
  Json all = ProviderDump(context, &status);
  return Worse(status, WriteDump(command, context, std::move(all)));
}

ExitStatus RunReport(const Command& command, CommandContext& context) {
  const ReportTarget target(command);
  ExitStatus status = kSuccess;
  const Json all = ProviderDump(context, &status);
  return Worse(status, target.Write(context, all));
}

namespace {

/// Refuses missing in-parameters and names them: a provider may treat a missing one as it likes.
void RequireAll(const MethodInfo& method, const std::vector<std::size_t>& given) {
  std::string missing;
  const auto& parameters = method.in->declaration.properties;
  for (std::size_t index = 0; index < parameters.size(); ++index) {
    if (std::ranges::find(given, index) != given.end()) continue;
    missing += (missing.empty() ? "" : ", ") + parameters[index].name + " (" +
               CimTypeName(parameters[index].type) + ")";
  }
  if (!missing.empty()) {
    throw ValueError(method.declaration.name + ": in-parameters are missing: " + missing);
  }
}

/// The methods that remove something, as a hint for users who try to delete an instance.
std::string RemovingMethods(const Repository& repository) {
  std::string names;
  for (const ClassInfo* info : repository.served()) {
    for (const MethodInfo& method : info->methods) {
      if (!method.declaration.name.starts_with("Remove")) continue;
      names += (names.empty() ? "; what removes something is the method " : ", ") +
               method.declaration.name + " of " + info->name();
    }
  }
  return names;
}

}  // namespace

ExitStatus RunCall(const Command& command, CommandContext& context) {
  const std::string path = command.Text("PATH");
  const std::string methodName = command.Text("METHOD");
  const ClassInfo* info = context.repository.FindClass(ClassNameOfPath(path));
  if (info == nullptr) {
    return Show(context, path, path, context.session->Call(path, methodName, nullptr), command,
                command.fields);
  }
  const MethodInfo* method = info->FindMethod(methodName);
  if (method == nullptr) {
    throw ValueError(NoMethod(*info, methodName));
  }
  std::optional<CimObject> in;
  if (method->in != nullptr) {
    in.emplace(*method->in);
    RequireAll(*method, Assign(command.All("NAME=VALUE"), &*in,
                               [](const PropertyDeclaration&) { return true; }));
  } else if (!command.All("NAME=VALUE").empty()) {
    throw ValueError(method->declaration.name + " takes no parameters");
  }
  // Checked before the method runs.
  const std::vector<std::string> fields = FieldsOf(method->out.get(), command.fields);
  // The provider knows a method only by its exact name.
  const std::string& name = method->declaration.name;
  const Outcome outcome = context.session->Call(path, name, in ? &*in : nullptr);
  const ExitStatus status = Show(context, path + " " + name, path, outcome, command, fields);
  if (status != kSuccess || method->declaration.returnType == CIM_EMPTY) return status;
  const ExitStatus answered =
      CheckReturnValue(context, path + " " + name,
                       outcome.objects.empty() ? Json() : outcome.objects.front().ToJson());
  const bool onlyAsks = name.starts_with("Is") || name.starts_with("Get");
  if (answered == kSuccess && !onlyAsks) TellThatItEnds(context);
  return answered;
}

ExitStatus RunDelete(const Command& command, CommandContext& context) {
  const std::string path = command.Text("PATH");
  const HRESULT status = context.session->Delete(path).status;
  if (status != WBEM_E_NOT_SUPPORTED) return context.ReportOf("delete " + path, path, status);
  return context.Fail(kRefused, "delete " + path + ": " + DescribeResult(status) +
                                    RemovingMethods(context.repository));
}

}  // namespace host
