#pragma once

#include <algorithm>

namespace host {

/// The program's exit status; if several apply, the highest.
enum ExitStatus : int {
  kSuccess = 0,
  kUnexpected = 1,
  kBadInput = 2,    ///< command line, scenario, query or value
  kNotFound = 3,    ///< no such class or instance
  kRefused = 4,     ///< a request failed, or the provider cannot be loaded or started
  kDefective = 5,   ///< the provider violated the contract
  kNotWritten = 6,  ///< the output could not be written completely
  kUnanswered = 7,  ///< the service did not answer in time, or the user did not wait
};

struct ExitStatusRow {
  ExitStatus status;
  const char* meaning;
};

/// All statuses, for documents and help.
inline constexpr ExitStatusRow kExitStatuses[] = {
    {kSuccess, "success; no instances is success"},
    {kUnexpected, "an unexpected failure of the program itself"},
    {kBadInput, "wrong command line, file, scenario, query, property name or value"},
    {kNotFound, "no such class or instance"},
    {kRefused,
     "the provider refused a request, could not be loaded, or reported a failed start (requests "
     "are still made); the ReturnValue of a method is FALSE"},
    {kDefective, "the provider broke the contract"},
    {kNotWritten, "standard output could not be written whole: a full disk, a closed pipe"},
    {kUnanswered,
     "the management service did not answer in time, or Ctrl-C ended the wait; what had arrived "
     "is shown"},
};

inline ExitStatus Worse(ExitStatus left, ExitStatus right) {
  return std::max(left, right);
}

}  // namespace host
