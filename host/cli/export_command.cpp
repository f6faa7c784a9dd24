#include <filesystem>

#include "host/cli/commands.h"
#include "host/cli/dump_output.h"
#include "host/cli/help.h"
#include "host/fleet/export.h"
#include "host/mof/product_schema.h"
#include "scenario/text_file.h"

namespace host {

ExitStatus RunExport(const Command& command, CommandContext& context) {
  const Schema schema =
      ParseMof(embedded::wifi_adapter_provider_mof(), "wifi_adapter_provider.mof");
  const std::string folder = command.Text("FOLDER");
  const std::vector<ExportedFile> files = PowerShellModule(schema, kProgramVersion);
  for (const ExportedFile& file : files) {
    const std::string path = folder + "/" + file.path;
    std::error_code problem;
    std::filesystem::create_directories(simulator::FilePath(path).parent_path(), problem);
    if (problem) return context.Fail(kNotWritten, path + ": " + problem.message());
    const ExitStatus status =
        WriteFile(context, path, [&](std::ostream& output) { output << file.content; });
    if (status != kSuccess) return status;
  }
  context.output << folder << ": " << files.size() << " files are written\n";
  return kSuccess;
}

}  // namespace host
