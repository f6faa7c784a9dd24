#include "host/model/dump.h"

#include <algorithm>
#include <charconv>
#include <cstdint>

#include "host/format/format.h"
#include "host/service/result_text.h"

namespace host {
namespace {

constexpr std::string_view kOfNoAdapter[] = {"WiFi_NetworkAdapterSetting", "WiFi_SystemPolicies",
                                             "WiFi_PreferredProfile", kOriginMember};
constexpr std::string_view kListClasses[] = {"WiFi_AdapterCachedScanList", "WiFi_AvailableNetwork",
                                             "WiFi_NetworkExcludeList"};

const Json& NoObject() {
  static const Json none = Json::object();
  return none;
}

}  // namespace

const char* AdapterKeyOf(std::string_view className) {
  if (std::ranges::find(kOfNoAdapter, className) != std::end(kOfNoAdapter)) return nullptr;
  return className == "WiFi_NetworkAdapter" ? "DeviceID" : "SettingID";
}

bool ShowsLists(std::string_view className) {
  return std::ranges::find(kListClasses, className) != std::end(kListClasses);
}

std::string TextOf(const Json& row, const char* name) {
  const auto found = row.find(name);
  return found == row.end() ? std::string() : CellText(*found);
}

std::optional<int> NumberOf(const Json& row, const char* name) {
  const std::string text = TextOf(row, name);
  int number = 0;
  const char* end = text.data() + text.size();
  const auto [next, error] = std::from_chars(text.data(), end, number);
  if (error != std::errc() || (next != end && *next != ' ')) return std::nullopt;
  return number;
}

Dump::Dump(const Json& json) : json_(json) {
  for (const auto& [name, rows] : json.items()) {
    if (!rows.is_array() || name == kOriginMember) continue;
    readings_[name].rows = &rows;
  }
  ReadFailures();
  CollectAdapters();
  for (auto& [name, reading] : readings_) FindEnd(name, reading);
  ReadEnds();
}

void Dump::ReadFailures() {
  const auto failures = origin().find("Failures");
  if (failures == origin().end() || !failures->is_array()) return;
  for (const Json& failure : *failures) {
    constexpr std::string_view kMark = " 0x";
    constexpr int kHexadecimal = 16;
    const std::string text = CellText(failure);
    const std::size_t mark = text.find(kMark);
    if (mark == std::string::npos) continue;
    std::uint32_t code = 0;
    std::from_chars(text.data() + mark + kMark.size(), text.data() + text.size(), code,
                    kHexadecimal);
    const auto reading = readings_.find(text.substr(0, mark));
    if (reading != readings_.end()) reading->second.status = static_cast<HRESULT>(code);
  }
}

/// A dump says where its enumerations ended, as instances asked for by name hide it.
void Dump::ReadEnds() {
  const auto ends = origin().find("EndedAt");
  if (ends == origin().end() || !ends->is_object()) return;
  for (const auto& [name, adapter] : ends->items()) {
    const auto reading = readings_.find(name);
    const auto place = std::ranges::lower_bound(adapters_, CellText(adapter));
    if (reading == readings_.end() || place == adapters_.end()) continue;
    if (*place == CellText(adapter)) reading->second.ended = place - adapters_.begin();
  }
}

void Dump::CollectAdapters() {
  for (auto& [name, reading] : readings_) {
    const char* key = AdapterKeyOf(name);
    if (key == nullptr) continue;
    for (const Json& row : *reading.rows) {
      std::string adapter = TextOf(row, key);
      if (adapter.empty() || !reading.first.try_emplace(adapter, &row).second) continue;
      adapters_.push_back(std::move(adapter));
    }
  }
  std::ranges::sort(adapters_);
  adapters_.erase(std::unique(adapters_.begin(), adapters_.end()), adapters_.end());
}

void Dump::FindEnd(std::string_view className, Reading& reading) const {
  if (AdapterKeyOf(className) == nullptr || adapters_.empty()) return;
  // An empty list at the first adapter need not be reported.
  if (reading.rows->empty() && ShowsLists(className) && reading.status == S_OK) {
    reading.status = WBEM_E_NOT_FOUND;
  }
  // Without any instance, a code other than this one may concern the class as a whole.
  const bool isOfAdapter = !reading.rows->empty() || reading.status == WBEM_E_NOT_FOUND;
  if (reading.status == S_OK || !isOfAdapter) return;
  std::size_t reached = 0;
  for (std::size_t place = adapters_.size(); place > 0 && reached == 0; --place) {
    if (reading.first.contains(adapters_[place - 1])) reached = place;
  }
  reading.ended = std::min(reached, adapters_.size() - 1);
}

const Json& Dump::origin() const {
  const auto found = json_.find(kOriginMember);
  const bool says =
      found != json_.end() && found->is_array() && !found->empty() && found->front().is_object();
  return says ? found->front() : NoObject();
}

const Dump::Reading* Dump::Find(std::string_view className) const {
  const auto found = readings_.find(className);
  return found == readings_.end() ? nullptr : &found->second;
}

const Json& Dump::Rows(std::string_view className) const {
  static const Json none = Json::array();
  const Reading* reading = Find(className);
  return reading == nullptr ? none : *reading->rows;
}

const Json& Dump::Row(std::string_view className, std::string_view adapter) const {
  const Reading* reading = Find(className);
  if (reading == nullptr) return NoObject();
  const auto found = reading->first.find(adapter);
  return found == reading->first.end() ? NoObject() : *found->second;
}

HRESULT Dump::Status(std::string_view className) const {
  const Reading* reading = Find(className);
  return reading == nullptr ? S_OK : reading->status;
}

std::string Dump::EndedAt(std::string_view className) const {
  const Reading* reading = Find(className);
  return reading == nullptr || !reading->ended ? "" : adapters_[*reading->ended];
}

std::string Dump::WhyUnknown(std::string_view className, std::string_view adapter) const {
  const Reading* reading = Find(className);
  if (reading == nullptr) return "the dump has no " + std::string(className);
  const bool hasRow = reading->first.contains(adapter);
  if (reading->status == S_OK) return hasRow ? "" : "no instance was shown";
  std::string code = DescribeResult(reading->status);
  if (!reading->ended) return code;
  const std::string& last = adapters_[*reading->ended];
  if (adapter < last || (hasRow && !ShowsLists(className))) return "";
  if (adapter > last) return "the enumeration ended at adapter " + last + ", " + code;
  if (hasRow) return "the list was not read to its end, " + code;
  if (!ShowsLists(className)) return code;
  return (reading->status == WBEM_E_NOT_FOUND ? "the list is empty or could not be read, "
                                              : "the list could not be read, ") +
         code;
}

std::vector<std::string> Dump::NotReached(std::string_view className, bool withInstances) const {
  const Reading* reading = Find(className);
  if (reading == nullptr || !reading->ended) return {};
  std::vector<std::string> missed;
  for (std::size_t place = *reading->ended + 1; place < adapters_.size(); ++place) {
    if (reading->first.contains(adapters_[place]) != withInstances) continue;
    missed.push_back(adapters_[place]);
  }
  return missed;
}

bool Dump::AskedByName(std::string_view className) const {
  const auto done = origin().find("ByName");
  if (done == origin().end() || !done->is_object()) return false;
  const auto found = done->find(className);
  return found == done->end() || !found->is_object() || !found->contains("Left");
}

}  // namespace host
