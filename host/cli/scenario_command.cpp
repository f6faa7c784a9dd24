#include <iostream>
#include <iterator>

#include "host/cli/commands.h"
#include "scenario/from_dump.h"
#include "scenario/from_iw.h"
#include "scenario/from_recording.h"
#include "scenario/text_file.h"

namespace host {

namespace {

struct CaptureRow {
  const char* option;
  simulator::ScenarioOfCapture (*make)(std::string_view text, const std::string& source);
};
constexpr CaptureRow kCaptures[] = {{"--from-iw", simulator::ScenarioFromIw},
                                    {"--from-dump", simulator::ScenarioFromDump},
                                    {"--from-recording", simulator::ScenarioFromRecording}};

}  // namespace

ExitStatus RunScenario(const Command& command, CommandContext& context) {
  const CaptureRow* chosen = nullptr;
  for (const CaptureRow& source : kCaptures) {
    if (!command.Has(source.option)) continue;
    if (chosen != nullptr) throw CommandLineError("scenario: it is made of one thing at a time");
    chosen = &source;
  }
  if (chosen == nullptr) {
    throw CommandLineError("scenario: what it is to be made of is missing; see help scenario");
  }
  const std::string path = command.Text(chosen->option);
  const bool isFile = !path.empty() && path != "-";
  const std::string source = isFile ? path : "standard input";
  std::string text;
  if (isFile) {
    text = simulator::ReadTextFile(path);
  } else {
    text.assign(std::istreambuf_iterator<char>(std::cin), {});
  }
  if (text.empty()) throw simulator::ScenarioError(source + ": it is empty");
  const simulator::ScenarioOfCapture made = chosen->make(text, source);
  // Remarks on what is left out or not known.
  for (const std::string& remark : made.remarks) WriteError(context.errors, remark);
  context.output << made.json;
  return kSuccess;
}

}  // namespace host
