#pragma once

#include <ostream>
#include <string>
#include <utility>
#include <vector>

#include "host/cli/exit_status.h"
#include "host/format/visible_text.h"
#include "host/service/provider_session.h"
#include "host/service/result_text.h"

namespace host {

class ProviderHost;
class ScenarioFile;

/// The objects that a command uses. All of them outlive the command.
struct CommandContext {
  const Repository& repository;
  ProviderSession* session;  ///< null for commands that need no provider
  std::ostream& output;
  std::ostream& errors;
  int width;                         ///< columns that a table may fill
  int (*widthNow)() = nullptr;       ///< returns it, if it can change between commands
  bool isTerminal = false;           ///< whether `output` is a terminal
  bool color = false;                ///< whether tables use bold and dim text
  ProviderHost* provider = nullptr;  ///< null if `session` is, or for a session alone
  ScenarioFile* scenario = nullptr;  ///< null with `provider`
  /// Takes the seconds that the enumeration of each class took in a dump, unless null.
  std::vector<std::pair<std::string, double>>* requestTimes = nullptr;
  bool inShell = false;
  bool leave = false;  ///< the shell must end, with this status or else the worst of its lines
  std::optional<ExitStatus> leaveStatus = {};
  std::string place = {};  ///< "FILE:LINE: " if the commands come from a file

  /// Reports an error and returns `status`.
  ExitStatus Fail(ExitStatus status, const std::string& message) {
    WriteError(errors, place + message);
    return status;
  }
  /// Reports how a request for `what` ended, unless with S_OK; `why` replaces the result's meaning.
  ExitStatus Report(const std::string& what, HRESULT result, const std::string& why = "") {
    if (result == S_OK) return kSuccess;
    const std::string message = what + ": " + (why.empty() ? DescribeResult(result) : why);
    if (SUCCEEDED(result)) return Fail(kSuccess, message);
    return Fail(StatusOf(result), message);
  }
  /// The exit status for a request that failed.
  static ExitStatus StatusOf(HRESULT result) {
    return MeansNotFound(result) ? kNotFound : MeansUnanswered(result) ? kUnanswered : kRefused;
  }
  /// The same for a request that names an instance by its path, or a class that does not exist; if
  /// it was not found, a hint is added.
  ExitStatus ReportOf(const std::string& what, const std::string& classOrPath, HRESULT result) {
    if (!MeansNotFound(result)) return Report(what, result);
    const std::string className = ClassNameOfPath(classOrPath);
    const ClassInfo* info = repository.FindClass(className);
    std::string hint;
    if (info == nullptr) {
      hint = repository.DidYouMeanClass(className);
    } else {
      hint = "; " + info->KeyNames() + ", and the case of its letters counts";
    }
    return Fail(kNotFound, what + ": " + DescribeResult(result) + hint);
  }
};

}  // namespace host
