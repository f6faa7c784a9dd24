#include "host/cli/command_runner.h"

#include <utility>

#include "host/cli/schema_view.h"
#include "host/query/wql.h"
#include "host/service/result_codes.h"

namespace host {
namespace {

Json RowsOf(const std::vector<CimObject>& objects, const std::vector<std::string>& fields) {
  Json rows = Json::array();
  for (const CimObject& object : objects) {
    Json all = object.ToJson();
    if (fields.empty()) {
      rows.push_back(std::move(all));
      continue;
    }
    Json chosen = Json::object();
    for (const std::string& field : fields) {
      if (const auto found = all.find(field); found != all.end()) chosen[field] = *found;
    }
    rows.push_back(std::move(chosen));
  }
  return rows;
}

/// The fields in the spelling of the class; the unknown ones of an unknown class as they are.
std::vector<std::string> FieldsOf(const ClassInfo* info, const std::vector<std::string>& fields) {
  if (info == nullptr) return fields;
  std::vector<std::string> spelled;
  for (const std::string& field : fields) {
    const std::optional<std::size_t> property = info->FindProperty(field);
    if (!property) {
      throw ValueError(info->name() + " has no property '" + field + "'; it has " +
                       info->PropertyNames());
    }
    spelled.push_back(info->declaration.properties[*property].name);
  }
  return spelled;
}

}  // namespace

CommandRunner::CommandRunner(const Repository& repository, ProviderSession* session,
                             std::ostream& output, std::ostream& errors, int width)
    : repository_(repository), session_(session), output_(output), errors_(errors), width_(width) {}

bool CommandRunner::NeedsProvider(CommandName name) {
  return name != CommandName::kClasses && name != CommandName::kDescribe;
}

ExitStatus CommandRunner::Run(const Command& command) {
  try {
    switch (command.name) {
      case CommandName::kEnum:
        return RunEnum(command);
      case CommandName::kGet:
        return RunGet(command);
      case CommandName::kQuery:
        return RunQuery(command);
      case CommandName::kClasses:
        return RunClasses(command);
      case CommandName::kDescribe:
        return RunDescribe(command);
      case CommandName::kDump:
        return RunDump(command);
      case CommandName::kPut:
        return RunPut(command);
      case CommandName::kCall:
        return RunCall(command);
      case CommandName::kDelete:
        return RunDelete(command);
      case CommandName::kShell:
      case CommandName::kScenario:
      case CommandName::kReference:
      case CommandName::kRegister:
      case CommandName::kUnregister:
        break;
    }
    return Fail(kUnexpected, "a shell cannot run this command");
  } catch (const ValueError& error) {
    return Fail(kBadInput, error.what());
  } catch (const QueryError& error) {
    return Fail(kBadInput, std::string("query: ") + error.what());
  }
}

ExitStatus CommandRunner::Fail(ExitStatus status, const std::string& message) {
  errors_ << "wmihost: " << message << '\n';
  return status;
}

ExitStatus CommandRunner::Report(const std::string& what, HRESULT status) {
  if (status == S_OK) return kSuccess;
  const std::string message = what + ": " + DescribeResult(status);
  if (SUCCEEDED(status)) return Fail(kSuccess, message);
  return Fail(MeansNotFound(status) ? kNotFound : kRefused, message);
}

ExitStatus CommandRunner::Show(const std::string& what, const Outcome& outcome,
                               const Command& command, const std::vector<std::string>& fields) {
  if (SUCCEEDED(outcome.status) || !outcome.objects.empty()) {
    output_ << FormatRows(RowsOf(outcome.objects, fields), command.format, width_);
  }
  return Report(what, outcome.status);
}

ExitStatus CommandRunner::RunEnum(const Command& command) {
  const std::vector<std::string> fields =
      FieldsOf(repository_.FindClass(command.target), command.fields);
  return Show(command.target, session_->Enumerate(command.target), command, fields);
}

ExitStatus CommandRunner::RunGet(const Command& command) {
  const std::vector<std::string> fields =
      FieldsOf(repository_.FindClass(ClassNameOfPath(command.target)), command.fields);
  const Outcome outcome = session_->Get(command.target);
  if (SUCCEEDED(outcome.status) && outcome.objects.empty()) {
    return Fail(kNotFound, command.target + ": the provider gave no instance");
  }
  return Show(command.target, outcome, command, fields);
}

ExitStatus CommandRunner::RunQuery(const Command& command) {
  if (command.toProvider) {
    return Show("query", session_->Query(command.target), command, command.fields);
  }
  const WqlQuery query = ParseWql(command.target, repository_);
  const std::vector<std::string> fields =
      FieldsOf(repository_.FindClass(query.className), command.fields);
  Outcome outcome = session_->Enumerate(query.className);
  std::erase_if(outcome.objects, [&](const CimObject& each) { return !query.Selects(each); });
  return Show("query", outcome, command, fields.empty() ? query.columns : fields);
}

ExitStatus CommandRunner::RunClasses(const Command& command) {
  output_ << FormatRows(ClassList(repository_), command.format, width_);
  return kSuccess;
}

ExitStatus CommandRunner::RunDescribe(const Command& command) {
  const ClassInfo* info = repository_.FindClass(command.target);
  if (info == nullptr) {
    return Report(command.target, static_cast<HRESULT>(WBEM_E_INVALID_CLASS));
  }
  output_ << (command.format == OutputFormat::kTable
                  ? ClassText(*info)
                  : FormatRows(MembersOf(*info), command.format, width_));
  return kSuccess;
}

ExitStatus CommandRunner::RunDump(const Command& command) {
  Json all = Json::object();
  ExitStatus status = kSuccess;
  for (const ClassInfo* info : repository_.served()) {
    const Outcome outcome = session_->Enumerate(info->name());
    all[info->name()] = RowsOf(outcome.objects, {});
    status = Worse(status, Report(info->name(), outcome.status));
  }
  if (command.format == OutputFormat::kJson) {
    output_ << JsonText(all);
    return status;
  }
  for (const auto& [name, rows] : all.items()) {
    output_ << "== " << name << " (" << rows.size() << ")\n"
            << FormatRows(rows, command.format, width_) << '\n';
  }
  return status;
}

ExitStatus CommandRunner::RunPut(const Command& command) {
  const auto writable = [](const PropertyDeclaration& property) {
    return property.qualifiers.Flag("write");
  };
  // Checked before the provider is asked for anything.
  if (const ClassInfo* info = repository_.FindClass(ClassNameOfPath(command.target))) {
    CimObject trial(*info);
    Assign(command.assignments, &trial, writable);
  }
  Outcome found = session_->Get(command.target);
  if (FAILED(found.status)) return Report(command.target, found.status);
  if (found.objects.empty()) {
    return Fail(kNotFound, command.target + ": the provider gave no instance");
  }
  CimObject& instance = found.objects.front();
  Assign(command.assignments, &instance, writable);
  return Report("put " + command.target, session_->Put(instance).status);
}

ExitStatus CommandRunner::RunCall(const Command& command) {
  const ClassInfo* info = repository_.FindClass(ClassNameOfPath(command.target));
  if (info == nullptr) {
    return Show(command.target, session_->Call(command.target, command.method, nullptr), command,
                command.fields);
  }
  const MethodInfo* method = info->FindMethod(command.method);
  if (method == nullptr) {
    throw ValueError(info->name() + " has no method '" + command.method + "'; " +
                     MethodNames(*info));
  }
  std::optional<CimObject> in;
  if (method->in != nullptr) {
    in.emplace(*method->in);
    Assign(command.assignments, &*in, [](const PropertyDeclaration&) { return true; });
  } else if (!command.assignments.empty()) {
    throw ValueError(method->declaration.name + " takes no parameters");
  }
  const Outcome outcome = session_->Call(command.target, command.method, in ? &*in : nullptr);
  return Show(command.target + " " + command.method, outcome, command,
              FieldsOf(method->out.get(), command.fields));
}

ExitStatus CommandRunner::RunDelete(const Command& command) {
  return Report("delete " + command.target, session_->Delete(command.target).status);
}

void Assign(const std::vector<std::string>& assignments, CimObject* instance,
            const std::function<bool(const PropertyDeclaration&)>& writable) {
  const std::vector<PropertyDeclaration>& properties = instance->info().declaration.properties;
  const auto accepted = [&] {
    std::string names;
    for (const PropertyDeclaration& property : properties) {
      if (!writable(property)) continue;
      names +=
          (names.empty() ? "" : ", ") + property.name + " (" + CimTypeName(property.type) + ")";
    }
    return names.empty() ? std::string("nothing can be set") : "it takes " + names;
  };
  for (const std::string& assignment : assignments) {
    const std::size_t equals = assignment.find('=');
    if (equals == std::string::npos) {
      throw ValueError("'" + assignment + "' is not of the form Name=value; " + accepted());
    }
    const std::string name = assignment.substr(0, equals);
    const std::optional<std::size_t> property = instance->info().FindProperty(name);
    if (!property || !writable(properties[*property])) {
      throw ValueError("'" + name + "' cannot be set; " + accepted());
    }
    const platform::Variant value =
        FromTypedText(properties[*property].type, std::string_view(assignment).substr(equals + 1));
    instance->Put(*property, value.get());
  }
}

}  // namespace host
