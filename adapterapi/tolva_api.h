#pragma once
// The declarations of the profile library TolvaApi for its client: plain classes, bound by the
// decorated names of the platform's compiler (listed in tolva_api.def). The caller owns the
// objects; they contain the storage that the library uses. The names depend only on these
// declarations and on the widths of LONG and ULONG.

#include "platform/platform.h"

// A build of the library may define this as its export attribute. A client needs no import
// attribute for functions.
#ifndef TOLVA_API
#define TOLVA_API
#endif

struct ORVEL_WLAN_PROFILE;  // records.h
enum ORVEL_OPMODE : int { ORVEL_OPMODE_BSS = 1, ORVEL_OPMODE_IBSS = 2 };
enum ORVEL_ALGORITHM : int {};
enum ORVEL_AUTHMODE : int {};

/// The size in bytes of each object of the library, aligned to 16. This is an assumption: the
/// objects are in the caller's memory, but the maker publishes neither their size nor their layout.
/// A library with larger objects would write beyond them.
inline constexpr unsigned kTolvaStorage = 4096;

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
  LONG Stealth() const;
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
  LONG Open(ULONG timeout);
  LONG Close();
  LONG GetFirstPreferredProfile(CPreferredProfile& profile, ULONG store);
  LONG GetNextPreferredProfile(CPreferredProfile& profile, ULONG store);
  LONG GetProfileToApply(const char* name, ORVEL_WLAN_PROFILE& profile, ULONG flags);

 private:
  alignas(16) unsigned char storage_[kTolvaStorage];
};

/// Statuses of the library.
inline constexpr LONG kTolvaSuccess = 275095;  // 0x43297
inline constexpr LONG kTolvaNoMoreProfiles = static_cast<LONG>(0x8004329Fu);
