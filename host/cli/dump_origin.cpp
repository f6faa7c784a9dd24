#include "host/cli/dump_origin.h"

#include <charconv>
#include <chrono>
#include <cstdio>

#include "host/cli/help.h"
#include "host/cli/provider_host.h"
#include "platform/environment.h"

namespace host {
namespace {

constexpr const char* kVersionedClass = "WiFi_NetworkAdapterConfiguration";
constexpr const char* kVersionMethod = "GetAPIVersion";

std::string HexText(std::uint32_t number) {
  char text[16];
  std::snprintf(text, sizeof text, "0x%08lX", static_cast<unsigned long>(number));
  return text;
}

/// "2026-11-23T08:00:00Z"
std::string TimeText() {
  using namespace std::chrono;
  auto now = floor<seconds>(system_clock::now());
  const std::string epoch = platform::EnvironmentText("SOURCE_DATE_EPOCH").value_or("");
  std::int64_t stated = 0;
  if (std::from_chars(epoch.data(), epoch.data() + epoch.size(), stated).ec == std::errc()) {
    now = sys_seconds(seconds(stated));
  }
  const auto day = floor<days>(now);
  const year_month_day date(day);
  const hh_mm_ss time(now - day);
  char text[40];
  std::snprintf(text, sizeof text, "%04d-%02u-%02uT%02d:%02d:%02dZ", static_cast<int>(date.year()),
                static_cast<unsigned>(date.month()), static_cast<unsigned>(date.day()),
                static_cast<int>(time.hours().count()), static_cast<int>(time.minutes().count()),
                static_cast<int>(time.seconds().count()));
  return text;
}

}  // namespace

void DumpOrigin::Visit(const ClassInfo& info, const Outcome& outcome) {
  if (outcome.status != S_OK) {
    failures_.push_back(info.name() + " " + HexText(static_cast<std::uint32_t>(outcome.status)));
  }
  if (SameIgnoringAsciiCase(info.name(), kVersionedClass) && !outcome.objects.empty()) {
    versioned_ = outcome.objects.front().RelativePath();
  }
}

Json DumpOrigin::ToJson(CommandContext& context) const {
  Json origin = {{"Version", kProgramVersion}};
  if (context.provider != nullptr) {
    const simulator::OsVersion version = context.provider->os_version();
    origin["OsVersion"] = std::to_string(version.major) + "." + std::to_string(version.minor);
  }
  if (versioned_) {
    const Outcome answer = context.session->Call(*versioned_, kVersionMethod, nullptr);
    if (SUCCEEDED(answer.status) && !answer.objects.empty()) {
      const Json values = answer.objects.front().ToJson();
      const auto version = values.find("ReturnValue");
      if (version != values.end() && version->is_number_integer()) {
        origin["LibraryVersion"] =
            HexText(static_cast<std::uint32_t>(version->get<std::int64_t>()));
      }
    }
  }
  origin["Time"] = TimeText();
  if (!failures_.empty()) origin["Failures"] = failures_;
  return origin;
}

}  // namespace host
