#pragma once
// Traces each call of a closed library, real or simulated. If the environment variable
// WIFI_PROVIDER_TRACE is "calls" when the module is loaded, each call writes a line to the debugger
// (OutputDebugStringA):
//
//   GetBand adapter=1 band=3 -> 0, 12 us
//   GetTxRate adapter=1 -> 0x80004005, fault 2, 9 us
//
// The simulator reports an applied fault through SetLastError: 0x20000000 | fault index. If calls
// are not traced, nothing is measured or written.

#include <chrono>
#include <cstdint>
#include <string>
#include <string_view>
#include <type_traits>

#include "adapterapi/records.h"
#include "platform/foreign_memory.h"

namespace adapterapi {

inline constexpr DWORD kFaultError = 0x20000000;

/// Whether calls are traced.
bool TracesCalls() noexcept;

/// One line of the trace. Construct it before the call, call Stop and Write after it.
class CallLine {
 public:
  explicit CallLine(const char* operation);

  /// Saves the time and the last error. To be called right after the call, before anything else.
  void Stop() noexcept;

  // Each adds an argument. Out-parameters are added only after success; arguments without a
  // readable value are left out.
  void Add(std::string_view name, std::uint32_t number);
  void Add(std::string_view name, const char* text);
  void Add(std::string_view name, const ExcludeEntryRecord* entry);
  void Add(std::string_view name, const ORVEL_WLAN_PROFILE* profile);
  template <class Number>
  requires std::is_integral_v<Number>
  void Add(std::string_view name, Number* number) {
    if (succeeded_ && number != nullptr) AddNumber(name, static_cast<std::int64_t>(*number));
  }
  template <class List>
  void Add(std::string_view name, const List** list) {
    std::int32_t count = 0;
    if (succeeded_ && list != nullptr && platform::CopyForeign(*list, count)) {
      AddNumber(name, count);
    }
  }
  template <class Other>
  void Add(std::string_view, Other*) {}

  void set_succeeded(bool succeeded) { succeeded_ = succeeded; }
  void Write(std::string_view outcome);

 private:
  void AddNumber(std::string_view name, std::int64_t number);
  void AddText(std::string_view name, std::string_view text);

  std::string text_;
  bool succeeded_ = false;
  DWORD error_ = 0;
  std::chrono::steady_clock::time_point begun_;
  std::chrono::steady_clock::time_point ended_;
};

/// "0" or "0x80004005".
std::string StatusText(std::int32_t status);

/// Runs `call`, which makes one call of a library inside the fence, and returns its status. `names`
/// is the source text of the argument list, such as "(adapter, band)".
template <class Call, class... Arguments>
std::int32_t TracedCall(const char* operation, std::string_view names, Call&& call,
                        const Arguments&... arguments) {
  if (!TracesCalls()) return call();
  CallLine line(operation);
  [[maybe_unused]] const auto add = [&](const auto& argument) {
    names.remove_prefix(names.find_first_not_of("(, "));
    const std::string_view name = names.substr(0, names.find_first_of(",)"));
    names.remove_prefix(name.size());
    line.Add(name, argument);
  };
  try {
    const std::int32_t status = call();
    line.Stop();
    line.set_succeeded(status == 0);
    (add(arguments), ...);
    line.Write(StatusText(status));
    return status;
  } catch (const std::exception& exception) {
    line.Stop();
    (add(arguments), ...);
    line.Write(std::string("raised \"") + exception.what() + '"');
    throw;
  } catch (...) {
    line.Stop();
    (add(arguments), ...);
    line.Write("raised");
    throw;
  }
}

}  // namespace adapterapi
