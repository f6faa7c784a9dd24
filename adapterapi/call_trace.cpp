#include "adapterapi/call_trace.h"

#include "adapterapi/bounded_text.h"
#include "adapterapi/profile_name.h"
#include "platform/environment.h"
#include "platform/short_text.h"

namespace adapterapi {
namespace {

// Read once, when the module is loaded.
const bool kTraced = platform::EnvironmentIs("WIFI_PROVIDER_TRACE", "calls");

}  // namespace

bool TracesCalls() noexcept {
  return kTraced;
}

CallLine::CallLine(const char* operation) : text_(operation) {
  SetLastError(0);
  begun_ = std::chrono::steady_clock::now();
}

void CallLine::Stop() noexcept {
  ended_ = std::chrono::steady_clock::now();
  error_ = GetLastError();
}

void CallLine::Add(std::string_view name, std::uint32_t number) {
  AddNumber(name, number);
}

void CallLine::Add(std::string_view name, const char* text) {
  if (text != nullptr) AddText(name, text);
}

void CallLine::Add(std::string_view name, const ExcludeEntryRecord* entry) {
  if (entry != nullptr) AddText(name, BoundedText(entry->ssid));
}

void CallLine::Add(std::string_view name, const ORVEL_WLAN_PROFILE* profile) {
  if (profile != nullptr) AddText(name, wifi::ProfileName(*profile));
}

void CallLine::AddNumber(std::string_view name, std::int64_t number) {
  text_.append(" ").append(name).append("=").append(
      std::string_view(platform::ShortText<24>().Decimal(number)));
}

void CallLine::AddText(std::string_view name, std::string_view text) {
  text_.append(" ").append(name).append("=\"").append(text).append("\"");
}

void CallLine::Write(std::string_view outcome) {
  using std::chrono::duration_cast;
  using std::chrono::microseconds;
  text_.append(" -> ").append(outcome);
  platform::ShortText<64> rest;
  if ((error_ & kFaultError) != 0) rest.Add(", fault ").Decimal(error_ & ~kFaultError);
  rest.Add(", ").Decimal(duration_cast<microseconds>(ended_ - begun_).count()).Add(" us");
  text_.append(std::string_view(rest));
  OutputDebugStringA(text_.c_str());
}

std::string StatusText(std::int32_t status) {
  if (status == 0) return "0";
  return std::string(
      platform::ShortText<16>().Add("0x").Hex(static_cast<std::uint32_t>(status), 8));
}

}  // namespace adapterapi
