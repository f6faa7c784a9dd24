#include "host/cli/service_commands.h"

#include <algorithm>
#include <chrono>
#include <iterator>

#include "host/cli/command_table.h"
#include "host/cli/dump_origin.h"
#include "host/cli/dump_output.h"
#include "host/cli/fleet_commands.h"
#include "host/cli/service_client.h"
#include "host/cli/show.h"
#include "host/cli/view_commands.h"
#include "host/model/source.h"
#include "platform/control/control.h"

namespace host {
namespace {

std::string NamespaceOf(const Command& command) {
  const std::string named = command.Text("--service");
  return named.empty() ? "root\\cimv2" : named;
}

Json RowsOfService(const ServiceAnswer& answer, const std::vector<std::string>& fields) {
  Json rows = Json::array();
  for (const ServiceObject& object : answer.objects) rows.push_back(RowOfService(object, fields));
  return rows;
}

ExitStatus ShowRows(const Command& command, CommandContext& context, const std::string& what,
                    const ServiceAnswer& answer, const Json& rows) {
  if (SUCCEEDED(answer.status) || !rows.empty()) {
    context.output << FormatRows(rows, command.format, context.width, command.fields,
                                 context.color);
  }
  return context.Report(what, answer.status);
}

ExitStatus ShowAnswer(const Command& command, CommandContext& context, const std::string& what,
                      const ServiceAnswer& answer, const std::string& className = "") {
  const RowsShown shown(context, command, className, command.fields);
  Json rows = Json::array();
  const auto valuesOf = [&answer](const std::string& name) {
    std::vector<Json> values;
    for (const ServiceObject& object : answer.objects) {
      values.push_back(RowOfService(object, {name})[name]);
    }
    return values;
  };
  for (const std::size_t index : shown.Order(answer.objects.size(), valuesOf)) {
    rows.push_back(RowOfService(answer.objects[index], command.fields));
  }
  if (SUCCEEDED(answer.status) || !rows.empty()) shown.Write(rows);
  return context.Report(what, answer.status);
}

TypedValues Typed(const Command& command) {
  TypedValues values;
  for (const std::string& assignment : command.All("NAME=VALUE")) {
    const std::size_t equals = assignment.find('=');
    if (equals == std::string::npos) throw ValueError("'" + assignment + "' is not NAME=VALUE");
    values.emplace_back(assignment.substr(0, equals), assignment.substr(equals + 1));
  }
  return values;
}

ExitStatus EnumOnService(const Command& command, CommandContext& context,
                         const ServiceClient& service) {
  const std::string name = command.Text("CLASS");
  return ShowAnswer(command, context, name, service.Enumerate(name), name);
}

ExitStatus GetOnService(const Command& command, CommandContext& context,
                        const ServiceClient& service) {
  const std::string path = command.Text("PATH");
  return ShowAnswer(command, context, path, service.Get(path));
}

ExitStatus QueryOnService(const Command& command, CommandContext& context,
                          const ServiceClient& service) {
  return ShowAnswer(command, context, "query", service.Query(command.Joined("WQL")));
}

ExitStatus ClassesOnService(const Command& command, CommandContext& context,
                            const ServiceClient& service) {
  const ServiceAnswer answer = service.Classes();
  Json rows = Json::array();
  for (const ServiceObject& each : answer.objects) rows.push_back({{"Name", ClassNameOf(each)}});
  return ShowRows(command, context, "classes", answer, rows);
}

ExitStatus DescribeOnService(const Command& command, CommandContext& context,
                             const ServiceClient& service) {
  const std::string name = command.Text("CLASS");
  const ServiceAnswer answer = service.Get(name);
  return ShowRows(command, context, name, answer,
                  answer.objects.empty() ? Json::array() : PropertiesOf(answer.objects.front()));
}

/// The computer's name, as the service gives it.
std::string ComputerName(const ServiceClient& service) {
  for (const ServiceObject& system : service.Enumerate("Win32_ComputerSystem").objects) {
    const Json name = RowOfService(system, {"Name"});
    const auto found = name.find("Name");
    if (found != name.end() && found->is_string()) return found->get<std::string>();
  }
  return "";
}

/// All instances of the provider's classes, and where they come from.
Json DumpOf(const Command& command, CommandContext& context, const ServiceClient& service,
            ExitStatus* status) {
  const auto enumerate = [&](const ClassInfo& info) {
    const ServiceAnswer answer = service.Enumerate(info.name());
    return ClassAnswer{answer.status, RowsOfService(answer, {})};
  };
  const auto get = [&](const std::string& path) {
    const ServiceAnswer answer = service.Get(path);
    return answer.objects.empty() ? Json() : RowOfService(answer.objects.front(), {});
  };
  const auto describe = [&] {
    Json origin = DumpStart();
    origin["Source"] = {{"Kind", kSourceKinds[static_cast<std::size_t>(SourceKind::kService)]},
                        {"Name", NamespaceOf(command)}};
    const std::string computer = ComputerName(service);
    if (!computer.empty()) origin["Source"]["Computer"] = computer;
    return origin;
  };
  return MakeDump(context, {enumerate, get, describe}, status);
}

ExitStatus DumpOnService(const Command& command, CommandContext& context,
                         const ServiceClient& service) {
  if (DumpFormat(command) != OutputFormat::kJson) {
    throw CommandLineError("dump: of a service it takes --format json");
  }
  ExitStatus status = kSuccess;
  Json all = DumpOf(command, context, service, &status);
  return Worse(status, WriteDump(command, context, std::move(all)));
}

ExitStatus ReportOnService(const Command& command, CommandContext& context,
                           const ServiceClient& service) {
  const ReportTarget target(command);
  ExitStatus status = kSuccess;
  const Json all = DumpOf(command, context, service, &status);
  return Worse(status, target.Write(context, all));
}

/// A command that shows the machine of a dump.
template <ExitStatus (*show)(const Command&, CommandContext&, const DumpSource&)>
ExitStatus MachineOnService(const Command& command, CommandContext& context,
                            const ServiceClient& service) {
  return show(command, context, [&](CommandContext& asking, ExitStatus* status) {
    return DumpOf(command, asking, service, status);
  });
}

ExitStatus PutOnService(const Command& command, CommandContext& context,
                        const ServiceClient& service) {
  const std::string path = command.Text("PATH");
  const ServiceAnswer found = service.Get(path);
  if (FAILED(found.status) || found.objects.empty()) return context.Report(path, found.status);
  for (const auto& [name, text] : Typed(command)) PutTyped(found.objects.front(), name, text);
  const ExitStatus status = context.Report("put " + path, service.Put(found.objects.front()));
  return status != kSuccess ? status : ShowAnswer(command, context, path, service.Get(path));
}

ExitStatus CallOnService(const Command& command, CommandContext& context,
                         const ServiceClient& service) {
  const std::string path = command.Text("PATH");
  const std::string method = command.Text("METHOD");
  const ServiceAnswer answer = service.Call(path, method, Typed(command));
  const ExitStatus status = ShowAnswer(command, context, path + " " + method, answer);
  if (status != kSuccess || answer.objects.empty()) return status;
  const Json out = RowOfService(answer.objects.front(), {});
  return out.contains("ReturnValue") ? CheckReturnValue(context, path + " " + method, out) : status;
}

struct ServiceCommand {
  const char* name;
  ExitStatus (*run)(const Command&, CommandContext&, const ServiceClient&);
  bool evenUnconnected = false;  ///< that there is no answer is shown too
};
constexpr ServiceCommand kServiceCommands[] = {
    {"enum", EnumOnService},
    {"get", GetOnService},
    {"query", QueryOnService},
    {"classes", ClassesOnService},
    {"describe", DescribeOnService},
    {"dump", DumpOnService},
    {"status", MachineOnService<ShowMachine>},
    {"adapters", MachineOnService<ShowMachine>},
    {"networks", MachineOnService<ShowMachine>},
    {"report", ReportOnService},
    {"put", PutOnService},
    {"call", CallOnService},
    {"metrics", MachineOnService<WriteMetrics>, true},
    {"health", MachineOnService<CheckMachine>, true},
};

const ServiceCommand* FindServiceCommand(const Command& command) {
  return std::ranges::find_if(kServiceCommands, [&](const ServiceCommand& each) {
    return SameIgnoringAsciiCase(each.name, command.row->name);
  });
}

}  // namespace

std::chrono::seconds ServiceLimit(const Command& command) {
  const auto seconds = command.Find("--timeout");
  return seconds ? std::chrono::seconds(std::stoi(*seconds)) : kDefaultLimit;
}

ExitStatus RunOnService(const Command& command, CommandContext& context) {
  const ServiceCommand* row = FindServiceCommand(command);
  if (row == std::end(kServiceCommands)) {
    throw CommandLineError(std::string("--service: it does nothing for ") + command.row->name);
  }
  if (command.format == OutputFormat::kChart || command.Has("--paths")) {
    throw CommandLineError("--service goes with neither --format chart nor --paths");
  }
  if (!os::ServiceConnection::Exists()) {
    throw CommandLineError("--service: there is no management service here, only on Windows");
  }
  os::ServiceLogon logon;
  logon.namespacePath = NamespaceOf(command);
  if (const auto user = command.Find("--user")) {
    logon.user = *user;
    logon.password = os::ReadPassword("Password of " + *user + ": ");
  }
  const platform::Apartment apartment(platform::Apartment::Kind::kMultithreaded);
  const ServiceClient service = ConnectToService(logon, ServiceLimit(command));
  return RunOnService(command, context, service);
}

ExitStatus RunOnService(const Command& command, CommandContext& context,
                        const ServiceClient& service) {
  const ServiceCommand& row = *FindServiceCommand(command);
  if (FAILED(service.connected()) && !row.evenUnconnected) {
    return context.Report(NamespaceOf(command), service.connected());
  }
  return row.run(command, context, service);
}

}  // namespace host
