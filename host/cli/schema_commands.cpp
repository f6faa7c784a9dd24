#include "host/cli/commands.h"
#include "host/cli/schema_view.h"
#include "host/mof/product_schema.h"
#include "host/mof/reference.h"
#include "scenario/reference.h"

namespace host {

ExitStatus RunClasses(const Command& command, CommandContext& context) {
  context.output << FormatRows(ClassList(context.repository), command.format, context.width, {},
                               context.color);
  return kSuccess;
}

ExitStatus RunDescribe(const Command& command, CommandContext& context) {
  const std::string className = command.Text("CLASS");
  const ClassInfo* info = context.repository.FindClass(className);
  if (info == nullptr) {
    return context.ReportOf(className, className, WBEM_E_INVALID_CLASS);
  }
  context.output << (command.format == OutputFormat::kTable
                         ? DescribeClass(info->declaration)
                         : FormatRows(MembersOf(*info), command.format, context.width, {},
                                      context.color));
  return kSuccess;
}

ExitStatus RunReference(const Command& command, CommandContext& context) {
  context.output << (SameName(command.Text("TOPIC"), "scenarios")
                         ? simulator::DescribeTables()
                         : ClassReference(ParseMof(embedded::wifi_adapter_provider_mof(),
                                                   "wifi_adapter_provider.mof")));
  return kSuccess;
}

}  // namespace host
