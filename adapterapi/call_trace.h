#pragma once
// One line for each call of a closed library, whoever made the library. With the environment
// variable WIFI_PROVIDER_TRACE set to "calls" when the module is loaded, each goes to the debugger
// (OutputDebugStringA):
//
//   GetBand adapter=1 band=3 -> 0, 12 us
//   GetTxRate adapter=1 -> 0x80004005, fault 2, 9 us
//
// A library that leaves an application-defined error (bit 29) behind for the thread says so which
// of its faults it has applied. Otherwise nothing is asked and nothing is written.

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

/// One line: made before the call, ended behind it.
class CallLine {
 public:
  explicit CallLine(const char* operation);

  /// Takes the time and the thread's error: first thing behind the call.
  void Stop() noexcept;

  // Arguments that say something; what the library fills only once it has answered success.
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

/// What `call` answers, which makes one call of a library behind the fence; `names` is the list of
/// `arguments` as it is written, "(adapter, band)".
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
