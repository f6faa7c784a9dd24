#include "tests/support/fake_profile_library.h"

#include <cstring>
#include <stdexcept>

using testing_support::FakeProfile;
using testing_support::FakeProfileLibrary;

namespace {

// A holder's storage keeps the address of the profile it was loaded with.
const FakeProfile& Loaded(const unsigned char* storage) {
  static const FakeProfile none;
  const FakeProfile* profile = nullptr;
  std::memcpy(&profile, storage, sizeof(profile));
  return profile == nullptr ? none : *profile;
}

TolvaLong Load(unsigned char* storage, TolvaUlong store) {
  FakeProfileLibrary& library = *FakeProfileLibrary::current;
  const auto scripted = library.loadStatuses.find(++library.loads);
  if (scripted != library.loadStatuses.end()) return scripted->second;
  const std::vector<FakeProfile>& profiles = library.stores[static_cast<unsigned>(store)];
  if (library.next >= profiles.size()) return kTolvaNoMoreProfiles;
  const FakeProfile* profile = &profiles[library.next++];
  std::memcpy(storage, &profile, sizeof(profile));
  return kTolvaSuccess;
}

}  // namespace

void FakeProfileLibrary::Note(const std::string& call) {
  if (current == nullptr) return;
  current->journal.Add("tolva " + call);
  if (current->throwsAt == call) throw std::runtime_error("profile library fault");
}

CPreferredProfile::CPreferredProfile() : storage_{} {
  FakeProfileLibrary::Note("new profile");
}
CPreferredProfile::~CPreferredProfile() {
  if (FakeProfileLibrary::current) FakeProfileLibrary::current->journal.Add("tolva end profile");
}
const char* CPreferredProfile::Name() const {
  return Loaded(storage_).name;
}
const char* CPreferredProfile::Ssid() const {
  return Loaded(storage_).ssid;
}
const char* CPreferredProfile::MandatoryAp() const {
  return Loaded(storage_).mandatoryAp;
}
ORVEL_OPMODE CPreferredProfile::OpMode() const {
  return static_cast<ORVEL_OPMODE>(Loaded(storage_).opMode);
}
TolvaLong CPreferredProfile::Stealth() const {
  return Loaded(storage_).stealth;
}
ORVEL_ALGORITHM CPreferredProfile::WepAlgorithm() const {
  return static_cast<ORVEL_ALGORITHM>(Loaded(storage_).algorithm);
}
ORVEL_AUTHMODE CPreferredProfile::AuthMode() const {
  return static_cast<ORVEL_AUTHMODE>(Loaded(storage_).authMode);
}

CProfileMgr::CProfileMgr() : storage_{} {
  FakeProfileLibrary::Note("new manager");
}
CProfileMgr::~CProfileMgr() {
  if (FakeProfileLibrary::current) FakeProfileLibrary::current->journal.Add("tolva end manager");
}
void CProfileMgr::SetWiFiProvider(bool on) {
  FakeProfileLibrary::Note(on ? "SetWiFiProvider(true)" : "SetWiFiProvider(false)");
}
TolvaLong CProfileMgr::Open(TolvaUlong timeout) {
  FakeProfileLibrary::Note("Open(" + std::to_string(timeout) + ")");
  return FakeProfileLibrary::current ? FakeProfileLibrary::current->openStatus : 0;
}
TolvaLong CProfileMgr::Close() {
  FakeProfileLibrary::Note("Close()");
  return 0;
}
TolvaLong CProfileMgr::GetFirstPreferredProfile(CPreferredProfile& profile, TolvaUlong store) {
  FakeProfileLibrary::Note("GetFirst(" + std::to_string(store) + ")");
  FakeProfileLibrary::current->next = 0;
  return Load(profile.storage_, store);
}
TolvaLong CProfileMgr::GetNextPreferredProfile(CPreferredProfile& profile, TolvaUlong store) {
  FakeProfileLibrary::Note("GetNext(" + std::to_string(store) + ")");
  return Load(profile.storage_, store);
}
TolvaLong CProfileMgr::GetProfileToApply(const char* name, ORVEL_WLAN_PROFILE& profile,
                                         TolvaUlong flags) {
  FakeProfileLibrary::Note("GetProfileToApply(" + std::string(name) + ", " + std::to_string(flags) +
                           ")");
  const FakeProfileLibrary& library = *FakeProfileLibrary::current;
  return library.onGetProfileToApply ? library.onGetProfileToApply(profile) : 0;
}
