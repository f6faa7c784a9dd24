#include <iostream>
#include <iterator>

#include "host/cli/commands.h"
#include "host/os/os.h"
#include "scenario/from_iw.h"
#include "scenario/text_file.h"

namespace host {

ExitStatus RunScenario(const Command& command, CommandContext& context) {
  if (!command.Has("--from-iw")) {
    throw CommandLineError("scenario: what it is to be made of is missing; see help scenario");
  }
  const std::string path = command.Text("--from-iw");
  const bool isFile = !path.empty() && path != "-";
  const std::string source = isFile ? path : "standard input";
  std::string capture;
  if (isFile) {
    capture = simulator::ReadTextFile(os::FileName(path), path);
  } else {
    capture.assign(std::istreambuf_iterator<char>(std::cin), {});
  }
  if (capture.empty()) throw simulator::ScenarioError(source + ": it is empty");
  const simulator::ScenarioOfCapture made = simulator::ScenarioFromIw(capture, source);
  // What is left out.
  for (const std::string& remark : made.remarks) context.errors << "wmihost: " << remark << '\n';
  context.output << made.json;
  return kSuccess;
}

}  // namespace host
