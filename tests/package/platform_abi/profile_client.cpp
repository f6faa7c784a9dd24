// A client of the profile library made for the platform's own ABI, without any runtime library. It
// exits with the number of the first step that went wrong, 0 when all went right.

#include "adapterapi/tolva_api.h"

// The constructors as calls see them: this ABI's give back their object, which the compiler takes
// for granted unless it is called through a pointer that it cannot see through.
extern "C" void* ConstructManager(void* storage) __asm__("??0CProfileMgr@@QEAA@XZ");
extern "C" void* ConstructProfile(void* storage) __asm__("??0CPreferredProfile@@QEAA@XZ");

namespace {

int Walk() {
  CProfileMgr manager;
  CPreferredProfile profile;
  manager.SetWiFiProvider(true);
  if (manager.GetFirstPreferredProfile(profile, 1) >= 0) return 1;
  if (manager.Open(3000) != kTolvaSuccess) return 2;
  if (manager.GetFirstPreferredProfile(profile, 1) != kTolvaSuccess) return 3;
  if (profile.Name()[0] == '\0' || profile.Ssid()[0] == '\0') return 4;
  if (profile.OpMode() != ORVEL_OPMODE_BSS) return 5;
  if (manager.GetFirstPreferredProfile(profile, 3) != kTolvaNoMoreProfiles) return 6;
  using Constructor = void*(void*);
  Constructor* volatile construct = &ConstructManager;
  if (construct(&manager) != &manager) return 7;
  construct = &ConstructProfile;
  if (construct(&profile) != &profile) return 8;
  return manager.Close() == kTolvaSuccess ? 0 : 9;
}

}  // namespace

extern "C" int mainCRTStartup() {
  return Walk();
}
