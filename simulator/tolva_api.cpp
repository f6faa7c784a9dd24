#include "adapterapi/tolva_api.h"

#include <new>
#include <type_traits>

#include "adapterapi/records.h"
#include "simulator/hooks.h"
#include "simulator/profile_library.h"

namespace {

using simulator::ProfileRecord;

constexpr LONG kInvalidArgument = static_cast<LONG>(0x80070057);
constexpr LONG kNotReady = static_cast<LONG>(0x80070015);
constexpr LONG kNotFound = static_cast<LONG>(0x80070490);

// The only arguments that the library accepts.
constexpr ULONG kOpenTimeout = 3000;
constexpr ULONG kApplyFlags = 1;

/// The library's data in a manager.
struct Manager {
  bool forWiFi = false;  ///< SetWiFiProvider(true) was called; Open requires it
  bool open = false;
  std::uint32_t store = 0;   ///< flag of the store being walked
  std::size_t position = 0;  ///< of the store's next profile
};

/// The library's data in a profile: the record, and a zero byte after each text, because a text may
/// fill its field.
struct Profile {
  char name[sizeof(ProfileRecord::name) + 1] = "";
  char ssid[sizeof(ProfileRecord::ssid) + 1] = "";
  char mandatoryAp[sizeof(ProfileRecord::mandatoryAp) + 1] = "";
  ProfileRecord record{};

  explicit Profile(const ProfileRecord& from) : record(from) {
    std::memcpy(name, from.name, sizeof from.name);
    std::memcpy(ssid, from.ssid, sizeof from.ssid);
    std::memcpy(mandatoryAp, from.mandatoryAp, sizeof from.mandatoryAp);
  }
};

static_assert(sizeof(Manager) <= kTolvaStorage && sizeof(Profile) <= kTolvaStorage);
static_assert(std::is_trivially_destructible_v<Manager>);
static_assert(std::is_trivially_destructible_v<Profile>);

Manager& ManagerIn(unsigned char* storage) {
  return *std::launder(reinterpret_cast<Manager*>(storage));
}

const Profile& ProfileIn(const unsigned char* storage) {
  return *std::launder(reinterpret_cast<const Profile*>(storage));
}

/// Loads the manager's next profile into a profile's storage.
LONG GiveNext(const simulator::Scenario& scenario, Manager& manager, unsigned char* storage) {
  const ProfileRecord* next = simulator::ProfileAt(scenario, manager.store, manager.position);
  if (next == nullptr) return kTolvaNoMoreProfiles;
  ++manager.position;
  new (storage) Profile(*next);
  return kTolvaSuccess;
}

simulator::ProfileLibrary library;

}  // namespace

CPreferredProfile::CPreferredProfile() {
  new (storage_) Profile(ProfileRecord{});
}
CPreferredProfile::~CPreferredProfile() = default;

const char* CPreferredProfile::Name() const {
  return ProfileIn(storage_).name;
}
const char* CPreferredProfile::Ssid() const {
  return ProfileIn(storage_).ssid;
}
const char* CPreferredProfile::MandatoryAp() const {
  return ProfileIn(storage_).mandatoryAp;
}
ORVEL_OPMODE CPreferredProfile::OpMode() const {
  return static_cast<ORVEL_OPMODE>(ProfileIn(storage_).record.opMode);
}
LONG CPreferredProfile::Stealth() const {
  return static_cast<LONG>(ProfileIn(storage_).record.stealth);
}
ORVEL_ALGORITHM CPreferredProfile::WepAlgorithm() const {
  return static_cast<ORVEL_ALGORITHM>(ProfileIn(storage_).record.encryption);
}
ORVEL_AUTHMODE CPreferredProfile::AuthMode() const {
  return static_cast<ORVEL_AUTHMODE>(ProfileIn(storage_).record.authentication);
}

CProfileMgr::CProfileMgr() {
  new (storage_) Manager;
}
CProfileMgr::~CProfileMgr() = default;

void CProfileMgr::SetWiFiProvider(bool on) {
  library.Run("CProfileMgr::SetWiFiProvider", [&](const auto&) -> LONG {
    ManagerIn(storage_).forWiFi = on;
    return 0;
  });
}

LONG CProfileMgr::Open(ULONG timeout) {
  return library.Run("CProfileMgr::Open", [&](const auto&) -> LONG {
    if (!ManagerIn(storage_).forWiFi) return kNotReady;
    if (timeout != kOpenTimeout) return kInvalidArgument;
    ManagerIn(storage_).open = true;
    return kTolvaSuccess;
  });
}

LONG CProfileMgr::Close() {
  return library.Run("CProfileMgr::Close", [this](const auto&) -> LONG {
    ManagerIn(storage_) = Manager{.forWiFi = ManagerIn(storage_).forWiFi};
    return kTolvaSuccess;
  });
}

LONG CProfileMgr::GetFirstPreferredProfile(CPreferredProfile& profile, ULONG store) {
  return library.Run("CProfileMgr::GetFirstPreferredProfile", [&](const auto& scenario) -> LONG {
    Manager& manager = ManagerIn(storage_);
    if (!manager.open) return kNotReady;
    manager.store = store;
    manager.position = 0;
    return GiveNext(scenario, manager, profile.storage_);
  });
}

LONG CProfileMgr::GetNextPreferredProfile(CPreferredProfile& profile, ULONG store) {
  return library.Run("CProfileMgr::GetNextPreferredProfile", [&](const auto& scenario) -> LONG {
    Manager& manager = ManagerIn(storage_);
    if (!manager.open) return kNotReady;
    if (manager.store != store) return kInvalidArgument;
    return GiveNext(scenario, manager, profile.storage_);
  });
}

LONG CProfileMgr::GetProfileToApply(const char* name, ORVEL_WLAN_PROFILE& profile, ULONG flags) {
  return library.Run("CProfileMgr::GetProfileToApply", [&](const auto& scenario) -> LONG {
    if (!ManagerIn(storage_).open) return kNotReady;
    if (name == nullptr || flags != kApplyFlags) return kInvalidArgument;
    const ProfileRecord* found = simulator::ProfileNamed(scenario, name);
    if (found == nullptr) return kNotFound;
    std::memcpy(&profile, found, sizeof profile);
    return kTolvaSuccess;
  });
}

int SimulatorSet(const char* path, const char* value, char* problem, std::size_t size) noexcept {
  return simulator::SetMember(library, path, value, problem, size);
}

int SimulatorPlay(const char* text, std::size_t length, char* problem, std::size_t size) noexcept {
  return simulator::PlayScenario(library, {text, length}, problem, size);
}

int SimulatorTime(long long milliseconds, char* problem, std::size_t size) noexcept {
  return simulator::SetTime(library, milliseconds, problem, size);
}
