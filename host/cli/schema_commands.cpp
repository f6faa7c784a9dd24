#include "host/cli/commands.h"
#include "host/cli/schema_view.h"
#include "host/mof/check.h"
#include "host/mof/product_schema.h"
#include "host/mof/reference.h"
#include "scenario/reference.h"
#include "scenario/text_file.h"

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
  context.output << (SameIgnoringAsciiCase(command.Text("TOPIC"), "scenarios")
                         ? simulator::DescribeTables()
                         : ClassReference(ParseMof(embedded::wifi_adapter_provider_mof(),
                                                   "wifi_adapter_provider.mof")));
  return kSuccess;
}

ExitStatus RunCheck(const Command& command, CommandContext& context) {
  std::string name = command.Text("FILE");
  std::string text;
  try {
    text = name.empty() ? std::string(embedded::wifi_adapter_provider_mof())
                        : simulator::ReadTextFile(name);
    if (name.empty()) name = "wifi_adapter_provider.mof";
    ExitStatus status = kSuccess;
    for (const std::string& finding : CheckSchema(ParseMof(text, name))) {
      status = context.Fail(kBadInput, name + ":" + finding);
    }
    if (status == kSuccess) context.output << name << ": nothing is wrong\n";
    return status;
  } catch (const simulator::FileError& error) {
    return context.Fail(kBadInput, error.what());
  } catch (const MofError& error) {
    return context.Fail(kBadInput, error.what());
  }
}

}  // namespace host
