#include "host/cli/dump_output.h"

#include <filesystem>
#include <fstream>
#include <system_error>

#include "host/format/format.h"
#include "host/model/dump.h"
#include "host/os/os.h"
#include "host/report/report.h"
#include "scenario/text_file.h"

namespace host {
namespace {

constexpr const char* kReportFile = "wifi-report.html";

bool IsThere(const std::string& path) {
  std::error_code unknown;
  return std::filesystem::exists(simulator::FilePath(path), unknown);
}

/// A file beside the one that it is to become, gone again unless it does.
class Draft {
 public:
  explicit Draft(const std::filesystem::path& target) : target_(target), path_(target) {
    path_ += ".part";
    std::error_code unknown;
    // Another file of that name is somebody else's.
    while (std::filesystem::exists(path_, unknown)) path_ += ".part";
  }
  Draft(const Draft&) = delete;
  Draft& operator=(const Draft&) = delete;
  ~Draft() {
    std::error_code unknown;
    if (!isDone_) std::filesystem::remove(path_, unknown);
  }

  const std::filesystem::path& path() const { return path_; }
  std::error_code Finish() {
    std::error_code problem;
    std::filesystem::rename(path_, target_, problem);
    isDone_ = !problem;
    return problem;
  }

 private:
  std::filesystem::path target_;
  std::filesystem::path path_;
  bool isDone_ = false;
};

}  // namespace

OutputFormat DumpFormat(const Command& command) {
  const bool isToFile = command.Find("FILE").has_value();
  return isToFile && !command.Has("--format") ? OutputFormat::kJson : command.format;
}

ExitStatus WriteFile(CommandContext& context, const std::string& path,
                     const std::function<void(std::ostream&)>& write) {
  std::error_code unknown;
  std::filesystem::path target = simulator::FilePath(path);
  const auto fail = [&](const std::string& problem) {
    return context.Fail(kNotWritten, path + ": it cannot be written" + problem);
  };
  const auto status = std::filesystem::status(target, unknown);
  if (std::filesystem::is_directory(status)) return fail(": it is a folder");
  if (std::filesystem::exists(status) && !std::filesystem::is_regular_file(status)) {
    std::ofstream stream(target, std::ios::binary);
    write(stream);
    return stream.flush() ? kSuccess : fail("");
  }
  // A link stays one.
  if (std::filesystem::exists(status)) target = std::filesystem::canonical(target, unknown);
  Draft draft(target);
  std::ofstream file(draft.path(), std::ios::binary);
  if (file) write(file);
  file.close();
  if (!file) return fail("");
  const std::error_code problem = draft.Finish();
  return problem ? fail(": " + problem.message()) : kSuccess;
}

ExitStatus WriteDump(const Command& command, CommandContext& context, Json all) {
  const OutputFormat format = DumpFormat(command);
  const auto write = [&](std::ostream& output) {
    if (format == OutputFormat::kJson) {
      EachJsonPiece(all, [&output](std::string_view piece) { output << piece; });
      return;
    }
    all.erase(kOriginMember);
    for (const auto& [name, rows] : all.items()) {
      output << "== " << name << " (" << rows.size() << ")\n"
             << FormatRows(rows, format, context.width, {}, context.color) << '\n';
    }
  };
  const auto file = command.Find("FILE");
  if (file) return WriteFile(context, *file, write);
  write(context.output);
  return kSuccess;
}

ReportTarget::ReportTarget(const Command& command) : file_(command.Find("FILE")) {
  if (command.Has("--format")) {
    throw CommandLineError("--format: report writes a page and takes none; dump has formats");
  }
  if (file_ || !os::IsTerminal(1)) return;
  if (IsThere(kReportFile)) {
    throw CommandLineError(std::string("report: a page is nothing for a terminal, and ") +
                           kReportFile + " is there already: name a FILE");
  }
  file_ = kReportFile;
  isOwnChoice_ = true;
}

ExitStatus ReportTarget::Write(CommandContext& context, const Json& dump) const {
  if (!file_) {
    WriteReport(context.output, context.repository, dump);
    return kSuccess;
  }
  const ExitStatus status = WriteFile(context, *file_, [&](std::ostream& output) {
    WriteReport(output, context.repository, dump);
  });
  if (status == kSuccess && isOwnChoice_) {
    context.errors << "wmihost: the report is in " << *file_ << '\n';
  }
  return status;
}

}  // namespace host
