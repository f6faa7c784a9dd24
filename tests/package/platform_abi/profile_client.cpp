// A client of the profile library, compiled for the platform's own ABI without any runtime library.
// It exits with the number of the first step that failed, 0 if all succeeded.

#include "adapterapi/tolva_api.h"

// The constructors as callers see them: in this ABI they return their object, which the compiler
// assumes without checking unless it calls them through a pointer whose target it cannot know.
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
