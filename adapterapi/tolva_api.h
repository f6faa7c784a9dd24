#pragma once
// The profile library TolvaApi as a client links it: plain classes, bound by the compiler's own
// decorated names, objects owned by the caller with the library's storage inside.

#include "adapterapi/records.h"
#include "platform/platform.h"

// The simulator, which defines these classes, exports them; a client needs no import attribute for
// functions.
#if defined(TOLVA_API_IMPLEMENTATION) && defined(_WIN32)
#define TOLVA_API __declspec(dllexport)
#elif defined(TOLVA_API_IMPLEMENTATION)
#define TOLVA_API __attribute__((visibility("default")))
#else
#define TOLVA_API
#endif

#ifdef _WIN32
using TolvaLong = long;
using TolvaUlong = unsigned long;
#else
using TolvaLong = LONG;
using TolvaUlong = ULONG;
#endif

enum ORVEL_OPMODE : int { ORVEL_OPMODE_BSS = 1, ORVEL_OPMODE_IBSS = 2 };
enum ORVEL_ALGORITHM : int {};
enum ORVEL_AUTHMODE : int {};

/// The maker does not publish the size of its objects: the room inside is generous.
inline constexpr std::size_t kTolvaStorage = 4096;

class TOLVA_API CPreferredProfile {
 public:
  CPreferredProfile();
  ~CPreferredProfile();
  CPreferredProfile(const CPreferredProfile&) = delete;
  CPreferredProfile& operator=(const CPreferredProfile&) = delete;

  const char* Name() const;
  const char* Ssid() const;
  const char* MandatoryAp() const;
  ORVEL_OPMODE OpMode() const;
  TolvaLong Stealth() const;
  ORVEL_ALGORITHM WepAlgorithm() const;
  ORVEL_AUTHMODE AuthMode() const;

 private:
  friend class CProfileMgr;
  alignas(16) unsigned char storage_[kTolvaStorage];
};

class TOLVA_API CProfileMgr {
 public:
  CProfileMgr();
  ~CProfileMgr();
  CProfileMgr(const CProfileMgr&) = delete;
  CProfileMgr& operator=(const CProfileMgr&) = delete;

  void SetWiFiProvider(bool on);
  TolvaLong Open(TolvaUlong timeout);
  TolvaLong Close();
  TolvaLong GetFirstPreferredProfile(CPreferredProfile& profile, TolvaUlong store);
  TolvaLong GetNextPreferredProfile(CPreferredProfile& profile, TolvaUlong store);
  TolvaLong GetProfileToApply(const char* name, ORVEL_WLAN_PROFILE& profile, TolvaUlong flags);

 private:
  alignas(16) unsigned char storage_[kTolvaStorage];
};

/// Statuses of the library.
inline constexpr LONG kTolvaSuccess = 275095;  // 0x43297
inline constexpr LONG kTolvaNoMoreProfiles = static_cast<LONG>(0x8004329Fu);
