#pragma once
// The content of a scenario: the machine that both simulated libraries play.

#include <array>
#include <cstring>
#include <limits>
#include <map>
#include <optional>
#include <span>
#include <string>
#include <string_view>
#include <vector>

#include "scenario/platform_objects.h"
#include "scenario/profile_record.h"

namespace simulator {

/// The values of one adapter, in the records that the library returns.
struct AdapterRecords {
  adapterapi::AdapterNumber number;
  adapterapi::MacAddress mac;
  std::uint32_t present;
  std::uint32_t type;
  std::uint32_t band;
  std::uint32_t radioState;
  std::uint32_t hwRadioState;
  std::uint32_t registrationState;
  std::uint32_t associationStatus;
  std::uint32_t readyForProfileState;
  std::uint32_t ibssTxPower;
  std::uint32_t supportedRates;
  std::uint32_t authenticationStatus;
  std::int32_t txRate;
  std::uint32_t adapterState;
  std::uint32_t protocolPreference;
  std::uint32_t connectionPreference;
  std::uint32_t xpZeroConfigEnabled;
  std::int32_t ccxTpcPower;
  std::uint32_t tcpIpBound;
  std::uint32_t supported;
  std::uint32_t excludeListEnabled;
  std::uint32_t rogueApCount;
  ProfileRecord lastProfile;
  adapterapi::PspInfoRecord psp;
  adapterapi::CcxVersionRecord ccxVersion;
  adapterapi::CcxPowerLevelsRecord ccxPowerLevels;
  adapterapi::IbssPreferencesRecord channels;
  adapterapi::AssociationInfoRecord association;
  adapterapi::AssociationStatsRecord associationStats;
  adapterapi::DeviceInfoRecord device;
  adapterapi::ConfigInfoRecord configuration;
  adapterapi::VersionInfoRecord versions;
  adapterapi::FeaturesRecord features;
  adapterapi::SignalParametersRecord signal;
  adapterapi::TcpipConfigRecord tcpip;
  adapterapi::Tcpipv6ConfigRecord tcpipv6;
  adapterapi::TxRxStatsRecord traffic;
};

/// A list as the library returns it: a signed count, then the entries. The count may be smaller
/// than the number of entries, never greater.
class RecordList {
 public:
  RecordList() : bytes_(sizeof(std::int32_t)) {}
  explicit RecordList(std::size_t entryBytes) : bytes_(sizeof(std::int32_t) + entryBytes) {}

  template <class Entry>
  static RecordList Of(std::span<const Entry> entries) {
    RecordList list(entries.size_bytes());
    if (!entries.empty()) std::memcpy(list.entries(), entries.data(), entries.size_bytes());
    list.set_count(static_cast<std::int32_t>(entries.size()));
    return list;
  }

  void set_count(std::int32_t count) { std::memcpy(bytes_.data(), &count, sizeof count); }
  /// Bytes of the entries.
  std::size_t size() const { return bytes_.size() - sizeof(std::int32_t); }
  std::uint8_t* entries() { return bytes_.data() + sizeof(std::int32_t); }
  /// The entries that a client sees, according to the count.
  template <class Entry>
  std::span<const Entry> Seen() const {
    const auto* list = As<adapterapi::LibraryList<Entry>>();
    return {list->entries, list->count > 0 ? static_cast<std::size_t>(list->count) : 0};
  }
  template <class List>
  const List* As() const {
    return reinterpret_cast<const List*>(bytes_.data());
  }
  bool operator==(const RecordList&) const = default;

 private:
  std::vector<std::uint8_t> bytes_;
};

struct Adapter {
  AdapterRecords records{};
  RecordList cachedNetworks;     ///< of ScanListEntry
  RecordList availableNetworks;  ///< of ScanListEntry
  RecordList excludeList;        ///< of ExcludeEntryRecord
};

/// The profile library's stores in the order of their flags 1, 2, 4, 8, 16.
inline constexpr std::array<std::string_view, 5> kProfileStores = {"user", "persistent", "prelogon",
                                                                   "postlogon", "itprofile"};

/// Makes calls of one operation fail or take longer.
struct Fault {
  enum class Kind { kDelay, kStatus, kException, kStructured };

  std::size_t index = 0;  ///< position in the scenario's array
  std::string operation;
  std::optional<adapterapi::AdapterNumber> adapter;  ///< nullopt: every adapter
  Kind kind = Kind::kDelay;
  std::int32_t status = 0;
  std::string exception;               ///< text of the C++ exception
  std::uint32_t structuredCode = 0;    ///< code of the structured exception
  std::uint32_t after = 1;             ///< first matching call that it applies to, from 1
  std::optional<std::uint32_t> times;  ///< nullopt: every call from there on
  std::uint32_t delayMs = 0;           ///< time that the call waits first
  bool output = false;                 ///< the operation is carried out before it fails
  /// The time of the timeline, in milliseconds, in which it applies: from the first, up to before
  /// the second.
  std::int64_t from = std::numeric_limits<std::int64_t>::min();
  std::int64_t until = std::numeric_limits<std::int64_t>::max();
};

/// A member's new value at a moment of the timeline; times are in milliseconds after its start.
struct TimelineChange {
  /// A number that moves to the new value in a straight line from an earlier moment on.
  struct Ramp {
    std::int64_t from;
    std::int64_t first;  ///< the number at that moment
    std::int64_t last;
  };

  std::int64_t at = 0;
  std::string path;   ///< as ChangeMember takes it
  std::string value;  ///< JSON
  std::optional<Ramp> ramp;
};

/// How the machine changes by itself.
struct Timeline {
  std::optional<std::int64_t> start;    ///< milliseconds since 1970, UTC
  std::optional<std::int64_t> repeat;   ///< after this time the machine starts again
  std::vector<TimelineChange> changes;  ///< in the order of their times
};

struct Scenario {
  PlatformObjects platform;
  std::uint32_t apiVersion = 0;
  std::vector<Adapter> adapters;
  std::map<std::uint32_t, std::uint32_t> settings;
  std::map<std::uint32_t, std::uint32_t> policies;
  std::array<std::vector<ProfileRecord>, kProfileStores.size()> profiles;
  std::vector<Fault> faults;
  Timeline timeline;
};

/// Reads and checks a scenario; `file` names it in errors. Throws ScenarioError.
Scenario ParseScenario(std::string_view json, const std::string& file);
/// Reads a scenario file. Its path is UTF-8; an empty path means the scenario that is compiled in.
/// Throws ScenarioError.
Scenario LoadScenario(const std::string& path);
/// The scenario that WIFI_SCENARIO names, or the one compiled in. A timeline without a start begins
/// when the file was written last, the same moment for every process. If it cannot be read,
/// nullopt, after one line on the debugger's output.
std::optional<Scenario> ScenarioOfEnvironment();

}  // namespace simulator
