#include "host/cli/dump_origin.h"

#include <charconv>
#include <chrono>
#include <cstdio>

#include "host/cli/by_name.h"
#include "host/cli/help.h"
#include "host/cli/provider_host.h"
#include "host/cli/scenario_file.h"
#include "host/cli/show.h"
#include "host/model/machine.h"
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

/// Which machine answers: what plays it, under which name.
Json SourceOf(const CommandContext& context) {
  const ProviderHost& provider = *context.provider;
  const std::string name = context.scenario == nullptr ? "" : context.scenario->FileName();
  const SourceKind kind = !provider.IsSimulated() ? SourceKind::kLibraries
                          : name.empty()          ? SourceKind::kBuiltIn
                                                  : SourceKind::kScenario;
  Json source = {{"Kind", kSourceKinds[static_cast<std::size_t>(kind)]}};
  if (!name.empty()) source["Name"] = name;
  source["Simulated"] = provider.IsSimulated();
  if (provider.IsChanged()) source["Changed"] = true;
  const simulator::Provenance& madeOf = provider.made_of();
  if (!madeOf.source.empty()) source["MadeOf"] = madeOf.source;
  if (!madeOf.told.empty()) source["Told"] = madeOf.told;
  if (!madeOf.invented.empty()) source["Invented"] = madeOf.invented;
  return source;
}

/// The version that the library's method returns; null if the call fails.
Json LibraryVersion(CommandContext& context, const std::string& path) {
  const Outcome answer = context.session->Call(path, kVersionMethod, nullptr);
  if (FAILED(answer.status) || answer.objects.empty()) return nullptr;
  const Json values = answer.objects.front().ToJson();
  const auto version = values.find("ReturnValue");
  if (version == values.end() || !version->is_number_integer()) return nullptr;
  return HexText(static_cast<std::uint32_t>(version->get<std::int64_t>()));
}

using ClassEnd = std::pair<std::string, HRESULT>;

std::string TextOf(const ClassEnd& end) {
  return end.first + " " + HexText(static_cast<std::uint32_t>(end.second));
}

/// Says on standard error and in `origin` how the enumeration of each class ended that did not end
/// well; gives the worst status. `dump` has all of `ends` for failures.
ExitStatus ReportEnds(CommandContext& context, const Dump& dump, const std::vector<ClassEnd>& ends,
                      Json& origin) {
  ExitStatus worst = kSuccess;
  for (const auto& end : ends) {
    const auto& [name, status] = end;
    const std::string failure = FailureOf(dump, name);
    const ExitStatus reported =
        failure.empty() ? context.Report(name, status)
                        : context.Fail(CommandContext::StatusOf(status), name + ": " + failure);
    const bool isEmpty = status == WBEM_E_NOT_FOUND && dump.Rows(name).empty();
    if (!isEmpty || !ShowsLists(name)) worst = Worse(worst, reported);
    if (isEmpty && failure.empty()) continue;
    origin["Failures"].push_back(TextOf(end));
    if (!dump.EndedAt(name).empty()) origin["EndedAt"][name] = dump.EndedAt(name);
  }
  const auto byName = dump.origin().find("ByName");
  if (origin.contains("Failures") && byName != dump.origin().end()) origin["ByName"] = *byName;
  return worst;
}

/// Asks by name for what enumerations left unread. The dump's own member then says where each
/// ended, as the added instances hide it.
void AskByName(const Repository& repository, const DumpRequests& requests,
               const std::vector<ClassEnd>& ends, Json& all) {
  Json failures = Json::array();
  for (const ClassEnd& end : ends) failures.push_back(TextOf(end));
  all[kOriginMember] = Json::array({{{"Failures", failures}, {"EndedAt", Json::object()}}});
  Json& known = all[kOriginMember].front();
  Json& endedAt = known["EndedAt"];
  const Dump enumerated(all);
  for (const auto& [name, status] : ends) {
    const std::string last = enumerated.EndedAt(name);
    if (!last.empty()) endedAt[name] = last;
  }
  const Json done = AddByName(repository, requests.get, &all);
  // Without any instance it was not known that the end is an adapter's, not the class's.
  const Dump whole(all);
  for (const auto& [name, numbers] : done.items()) {
    if (numbers["Given"] != 0) endedAt.emplace(name, whole.adapters().front());
  }
  known["ByName"] = done;
}

}  // namespace

Json DumpStart() {
  return {{"Version", kProgramVersion}, {"Time", TimeText()}};
}

Json MakeDump(CommandContext& context, const DumpRequests& requests, ExitStatus* status) {
  Json all = Json::object();
  std::vector<ClassEnd> ends;
  for (const ClassInfo* info : context.repository.served()) {
    const auto start = std::chrono::steady_clock::now();
    ClassAnswer answer = requests.enumerate(*info);
    const std::chrono::duration<double> took = std::chrono::steady_clock::now() - start;
    if (context.requestTimes != nullptr) {
      context.requestTimes->emplace_back(info->name(), took.count());
    }
    if (answer.status != S_OK) ends.emplace_back(info->name(), answer.status);
    all[info->name()] = std::move(answer.rows);
  }
  Json origin = requests.describe();
  if (!ends.empty()) AskByName(context.repository, requests, ends, all);
  *status = ReportEnds(context, Dump(all), ends, origin);
  all[kOriginMember] = Json::array({std::move(origin)});
  return all;
}

std::string WhyEnumerationEnded(CommandContext& context, const ClassInfo& info,
                                const Outcome& outcome) {
  const char* key = AdapterKeyOf(info.name());
  if (key == nullptr || outcome.status == S_OK) return "";
  const auto keysOf = [](const std::vector<CimObject>& objects, const char* property) {
    return RowsOf(objects, {property}, false);
  };
  // The class of adapters that asks no library.
  Json known = {
      {kVersionedClass, keysOf(context.session->Enumerate(kVersionedClass).objects, "SettingID")}};
  known[info.name()] = keysOf(outcome.objects, key);
  known[kOriginMember] = {{{"Failures", {TextOf(ClassEnd(info.name(), outcome.status))}}}};
  return FailureOf(Dump(known), info.name());
}

Json ProviderDump(CommandContext& context, ExitStatus* status) {
  std::optional<std::string> versioned;  // an instance whose method tells the library's version
  const auto enumerate = [&](const ClassInfo& info) {
    ClassAnswer answer;
    const bool isVersioned = SameIgnoringAsciiCase(info.name(), kVersionedClass);
    answer.status = context.session
                        ->Enumerate(info.name(),
                                    [&](const CimObject& object) {
                                      if (isVersioned && !versioned) {
                                        versioned = object.RelativePath();
                                      }
                                      answer.rows.push_back(object.ToJson());
                                    })
                        .status;
    return answer;
  };
  const auto describe = [&] {
    Json origin = {{"Version", kProgramVersion}};
    if (context.provider != nullptr) {
      const simulator::OsVersion version = context.provider->os_version();
      origin["OsVersion"] = std::to_string(version.major) + "." + std::to_string(version.minor);
    }
    const Json library = versioned ? LibraryVersion(context, *versioned) : Json();
    if (!library.is_null()) origin["LibraryVersion"] = library;
    origin["Time"] = TimeText();
    origin["StartStatus"] = HexText(static_cast<std::uint32_t>(context.session->init_status()));
    if (context.provider != nullptr) origin["Source"] = SourceOf(context);
    return origin;
  };
  const auto get = [&](const std::string& path) {
    const Outcome answer = context.session->Get(path);
    return answer.objects.empty() ? Json() : answer.objects.front().ToJson();
  };
  return MakeDump(context, {enumerate, get, describe}, status);
}

}  // namespace host
