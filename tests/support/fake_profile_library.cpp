#include "tests/support/fake_profile_library.h"

#include <cstring>
#include <optional>
#include <stdexcept>

using testing_support::FakeProfile;
using testing_support::FakeProfileLibrary;
using testing_support::FaultPlan;
using testing_support::kPlannedFailure;
using testing_support::Manner;
using testing_support::Outgoing;
using testing_support::Side;
using testing_support::Step;

namespace {

// A holder's storage contains the address of the profile that was loaded into it.
const FakeProfile& Loaded(const unsigned char* storage) {
  static const FakeProfile none;
  const FakeProfile* profile = nullptr;
  std::memcpy(&profile, storage, sizeof(profile));
  return profile == nullptr ? none : *profile;
}

LONG Load(unsigned char* storage, ULONG store) {
  FakeProfileLibrary& library = *FakeProfileLibrary::current;
  const auto scripted = library.loadStatuses.find(++library.loads);
  if (scripted != library.loadStatuses.end()) return scripted->second;
  const std::vector<FakeProfile>& profiles = library.stores[static_cast<unsigned>(store)];
  if (library.next >= profiles.size()) {
    return library.endless ? kTolvaSuccess : kTolvaNoMoreProfiles;
  }
  const FakeProfile* profile = &profiles[library.next++];
  std::memcpy(storage, &profile, sizeof(profile));
  return kTolvaSuccess;
}

// A destructor may raise a structured exception, but it never throws.
void End(const char* call) {
  std::optional<Outgoing> raising;
  if (FaultPlan::armed != nullptr && FaultPlan::armed->manner == Manner::kStructured) {
    raising.emplace(Step::kProfileLibrary);
  }
  const Side outside(false);
  FakeProfileLibrary::NoteEnd(call);
}

}  // namespace

void FakeProfileLibrary::Note(const std::string& call) {
  if (current == nullptr) return;
  NoteEnd(call.c_str());
  if (current->throwsAt == call) throw std::runtime_error("profile library fault");
}

void FakeProfileLibrary::NoteEnd(const char* call) {
  if (current == nullptr) return;
  current->journal.Add("tolva " + std::string(call));
  if (current->onCall) current->onCall(call);
}

CPreferredProfile::CPreferredProfile() : storage_{} {
  const Outgoing call(Step::kProfileLibrary);
  FakeProfileLibrary::Note("new profile");
}
CPreferredProfile::~CPreferredProfile() {
  End("end profile");
}
const char* CPreferredProfile::Name() const {
  const Outgoing call(Step::kProfileLibrary);
  return call.struck() ? nullptr : Loaded(storage_).name;
}
const char* CPreferredProfile::Ssid() const {
  const Outgoing call(Step::kProfileLibrary);
  return call.struck() ? nullptr : Loaded(storage_).ssid;
}
const char* CPreferredProfile::MandatoryAp() const {
  const Outgoing call(Step::kProfileLibrary);
  return Loaded(storage_).mandatoryAp;
}
ORVEL_OPMODE CPreferredProfile::OpMode() const {
  const Outgoing call(Step::kProfileLibrary);
  return static_cast<ORVEL_OPMODE>(Loaded(storage_).opMode);
}
LONG CPreferredProfile::Stealth() const {
  const Outgoing call(Step::kProfileLibrary);
  return Loaded(storage_).stealth;
}
ORVEL_ALGORITHM CPreferredProfile::WepAlgorithm() const {
  const Outgoing call(Step::kProfileLibrary);
  return static_cast<ORVEL_ALGORITHM>(Loaded(storage_).algorithm);
}
ORVEL_AUTHMODE CPreferredProfile::AuthMode() const {
  const Outgoing call(Step::kProfileLibrary);
  return static_cast<ORVEL_AUTHMODE>(Loaded(storage_).authMode);
}

CProfileMgr::CProfileMgr() : storage_{} {
  const Outgoing call(Step::kProfileLibrary);
  FakeProfileLibrary::Note("new manager");
}
CProfileMgr::~CProfileMgr() {
  End("end manager");
}
void CProfileMgr::SetWiFiProvider(bool on) {
  const Outgoing call(Step::kProfileLibrary);
  FakeProfileLibrary::Note(on ? "SetWiFiProvider(true)" : "SetWiFiProvider(false)");
}
LONG CProfileMgr::Open(ULONG timeout) {
  const Outgoing call(Step::kProfileLibrary);
  if (call.struck()) return kPlannedFailure;
  FakeProfileLibrary::Note("Open(" + std::to_string(timeout) + ")");
  return FakeProfileLibrary::current ? FakeProfileLibrary::current->openStatus : 0;
}
LONG CProfileMgr::Close() {
  const Outgoing call(Step::kProfileLibrary);
  FakeProfileLibrary::Note("Close()");
  return 0;
}
LONG CProfileMgr::GetFirstPreferredProfile(CPreferredProfile& profile, ULONG store) {
  const Outgoing call(Step::kProfileLibrary);
  if (call.struck()) return call.code();
  FakeProfileLibrary::Note("GetFirst(" + std::to_string(store) + ")");
  FakeProfileLibrary::current->next = 0;
  return Load(profile.storage_, store);
}
LONG CProfileMgr::GetNextPreferredProfile(CPreferredProfile& profile, ULONG store) {
  const Outgoing call(Step::kProfileLibrary);
  if (call.struck()) return call.code();
  FakeProfileLibrary::Note("GetNext(" + std::to_string(store) + ")");
  return Load(profile.storage_, store);
}
LONG CProfileMgr::GetProfileToApply(const char* name, ORVEL_WLAN_PROFILE& profile, ULONG flags) {
  const Outgoing call(Step::kProfileLibrary);
  if (call.struck()) return call.code();
  FakeProfileLibrary::Note("GetProfileToApply(" + std::string(name) + ", " + std::to_string(flags) +
                           ")");
  const FakeProfileLibrary& library = *FakeProfileLibrary::current;
  return library.onGetProfileToApply ? library.onGetProfileToApply(profile) : 0;
}
