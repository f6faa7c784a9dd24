#include <chrono>
#include <thread>

#include "host/cli/commands.h"
#include "host/cli/dump_origin.h"
#include "host/cli/provider_host.h"
#include "host/cli/view_commands.h"
#include "host/history/recording_writer.h"
#include "host/model/dump.h"
#include "scenario/text_file.h"
#include "scenario/time_text.h"

namespace host {
namespace {

constexpr std::int64_t kDefaultInterval = 5000;

std::optional<std::int64_t> DurationOf(const Command& command, const char* option) {
  const auto text = command.Find(option);
  if (!text) return std::nullopt;
  const std::int64_t duration = *simulator::ParseDuration(*text);
  if (duration == 0)
    throw CommandLineError(std::string(option) + ": more than no time is expected");
  return duration;
}

/// The size at which another file is begun, in bytes.
std::optional<std::uintmax_t> MostBytes(const Command& command) {
  constexpr std::uintmax_t kMegabyte = 1 << 20;
  const auto megabytes = command.Find("--rotate");
  if (!megabytes) return std::nullopt;
  if (std::stoul(*megabytes) == 0) throw CommandLineError("--rotate: at least 1 is expected");
  return std::stoul(*megabytes) * kMegabyte;
}

}  // namespace

ExitStatus RunRecord(const Command& command, CommandContext& context) {
  const std::int64_t interval = DurationOf(command, "--every").value_or(kDefaultInterval);
  const std::optional<std::int64_t> length = DurationOf(command, "--for");
  ProviderHost& machine = *context.provider;
  try {
    RecordingWriter recording(simulator::FilePath(command.Text("FILE")), MostBytes(command));
    const std::int64_t begin = machine.Time();
    for (std::int64_t next = begin;;) {
      const std::int64_t time = machine.Time();
      // The recording says which enumerations failed.
      ExitStatus status = kSuccess;
      Json dump = QuietDump(context, ProviderDump, &status);
      dump[kOriginMember][0].erase("Time");
      recording.Write(time, std::move(dump));
      next += interval;
      const std::int64_t now = machine.Time();
      if (next < now) next = now;  // the machine was slow, or slept
      if (length && next - begin >= *length) return kSuccess;
      machine.Wait(next - now);
    }
  } catch (const RecordingError& error) {
    return context.Fail(kNotWritten, error.what());
  }
}

}  // namespace host
