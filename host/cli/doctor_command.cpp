#include <algorithm>

#include "host/cli/commands.h"
#include "host/cli/doctor.h"
#include "host/cli/service_commands.h"
#include "host/format/format.h"
#include "host/mof/product_schema.h"
#include "host/mof/registration.h"
#include "platform/control/control.h"

namespace host {
namespace {

// In the order of the enumeration.
constexpr const char* kVerdicts[] = {"good", "note", "problem", "unknown"};

std::vector<Diagnosis> AskService(const Command& command, const Schema& schema,
                                  const Repository& repository) {
  if (!os::ServiceConnection::Exists()) {
    return {{"service", Severity::kUnknown, "This system has no management service."}};
  }
  const platform::Apartment apartment(platform::Apartment::Kind::kMultithreaded);
  os::ServiceLogon logon;
  logon.namespacePath = "root\\cimv2";
  auto all = DiagnoseService(ConnectToService(logon, ServiceLimit(command)), schema, repository);
  logon.namespacePath = "root";
  all.push_back(DiagnoseQuota(ConnectToService(logon, ServiceLimit(command))));
  return all;
}

std::vector<Diagnosis> DiagnoseAll(const Command& command, const CommandContext& context) {
  const Schema schema =
      ParseMof(embedded::wifi_adapter_provider_mof(), "wifi_adapter_provider.mof");
  // Before the module is loaded here, so that the service's threads have nothing to do with it.
  const std::vector<Diagnosis> service = AskService(command, schema, context.repository);
  std::vector<Diagnosis> all = DiagnoseModule(command, ProviderClassId(schema));
  all.insert(all.end(), service.begin(), service.end());
  return all;
}

}  // namespace

ExitStatus RunDoctor(const Command& command, CommandContext& context) {
  const std::vector<Diagnosis> all = DiagnoseAll(command, context);
  Json rows = Json::array();
  for (const Diagnosis& each : all) {
    Json& row = rows.emplace_back();
    row["Part"] = each.part;
    row["Verdict"] = kVerdicts[static_cast<std::size_t>(each.severity)];
    // A table has one column for both, which may take several lines.
    const bool isTable = command.format == OutputFormat::kTable;
    const std::string advice = isTable && !each.advice.empty() ? " " + each.advice : "";
    row["Found"] = each.found + advice;
    if (!isTable) row["Do"] = each.advice;
  }
  context.output << FormatRows(rows, command.format, context.width, {}, context.color);
  const bool isBad = std::ranges::find(all, Severity::kProblem, &Diagnosis::severity) != all.end();
  return isBad ? kRefused : kSuccess;
}

}  // namespace host
