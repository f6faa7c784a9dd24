// A profile library compiled for the platform's own ABI, with another compiler than the provider's
// and without any runtime library. It responds only to correct calls, so that wrongly passed
// arguments, objects and results show as missing profiles.

#include "adapterapi/tolva_api.h"

namespace {

constexpr unsigned kManagerMark = 0x4D475221;
constexpr unsigned kProfileMark = 0x50524F21;
constexpr LONG kRefused = -1;

struct Manager {
  unsigned mark;
  bool wifiProvider;
  bool open;
  ULONG next;
};

struct Profile {
  unsigned mark;
  ULONG store;
  ULONG position;
  char name[32];
};

int managers = 0;  // alive; each request creates one and destroys it

Manager& In(unsigned char* storage) {
  return *reinterpret_cast<Manager*>(storage);
}

void Copy(char* to, const char* from) {
  while ((*to++ = *from++) != '\0') {
  }
}

bool Same(const char* left, const char* right) {
  while (*left != '\0' && *left == *right) ++left, ++right;
  return *left == *right;
}

// The user's store has two profiles, the store after logon has one, the others are empty.
LONG Load(Manager& manager, unsigned char* storage, ULONG store) {
  auto& profile = *reinterpret_cast<Profile*>(storage);
  if (manager.mark != kManagerMark || !manager.open || profile.mark != kProfileMark)
    return kRefused;
  const ULONG count = store == 1 ? 2 : store == 8 ? 1 : 0;
  if (manager.next >= count) return kTolvaNoMoreProfiles;
  profile.store = store;
  profile.position = manager.next++;
  Copy(profile.name, store == 8 ? "Guest" : profile.position == 0 ? "Office" : "Home");
  return kTolvaSuccess;
}

const Profile& In(const unsigned char* storage) {
  return *reinterpret_cast<const Profile*>(storage);
}

}  // namespace

CProfileMgr::CProfileMgr() {
  In(storage_) = Manager{kManagerMark, false, false, 0};
  ++managers;
}
CProfileMgr::~CProfileMgr() {
  In(storage_).mark = 0;
  --managers;
}
void CProfileMgr::SetWiFiProvider(bool on) {
  In(storage_).wifiProvider = on;
}
LONG CProfileMgr::Open(ULONG timeout) {
  Manager& manager = In(storage_);
  manager.open =
      manager.mark == kManagerMark && manager.wifiProvider && timeout == 3000 && managers == 1;
  return manager.open ? kTolvaSuccess : kRefused;
}
LONG CProfileMgr::Close() {
  In(storage_).open = false;
  return kTolvaSuccess;
}
LONG CProfileMgr::GetFirstPreferredProfile(CPreferredProfile& profile, ULONG store) {
  In(storage_).next = 0;
  return Load(In(storage_), profile.storage_, store);
}
LONG CProfileMgr::GetNextPreferredProfile(CPreferredProfile& profile, ULONG store) {
  return Load(In(storage_), profile.storage_, store);
}
LONG CProfileMgr::GetProfileToApply(const char* name, ORVEL_WLAN_PROFILE& record, ULONG flags) {
  if (!In(storage_).open || !Same(name, "Home") || flags != 1) return kRefused;
  constexpr unsigned kRecordSize = 3648;
  constexpr unsigned kNameOffset = 4;
  auto* bytes = reinterpret_cast<char*>(&record);
  for (unsigned index = 0; index < kRecordSize; ++index) bytes[index] = 0;
  Copy(bytes + kNameOffset, "Applied at home");
  return 0;
}

CPreferredProfile::CPreferredProfile() {
  *reinterpret_cast<Profile*>(storage_) = Profile{kProfileMark, 0, 0, {}};
}
CPreferredProfile::~CPreferredProfile() {
  *reinterpret_cast<Profile*>(storage_) = Profile{};
}
const char* CPreferredProfile::Name() const {
  return In(storage_).name;
}
const char* CPreferredProfile::Ssid() const {
  return "network";
}
const char* CPreferredProfile::MandatoryAp() const {
  return "00:11:22:33:44:55";
}
ORVEL_OPMODE CPreferredProfile::OpMode() const {
  return In(storage_).position == 0 ? ORVEL_OPMODE_BSS : ORVEL_OPMODE_IBSS;
}
LONG CPreferredProfile::Stealth() const {
  return In(storage_).store == 8;
}
ORVEL_ALGORITHM CPreferredProfile::WepAlgorithm() const {
  return static_cast<ORVEL_ALGORITHM>(5);
}
ORVEL_AUTHMODE CPreferredProfile::AuthMode() const {
  return static_cast<ORVEL_AUTHMODE>(2);
}

extern "C" int __stdcall _DllMainCRTStartup(void*, unsigned, void*) {
  return 1;
}
