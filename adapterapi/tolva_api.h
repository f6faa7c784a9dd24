#pragma once
// The profile library TolvaApi as a client links it: plain classes, bound by the decorated names of
// the platform's compiler (tolva_api.def lists them), objects owned by the caller with the
// library's storage inside. The names follow from these declarations and the widths of LONG and
// ULONG alone.

#include "platform/platform.h"

// Whoever builds the library may define this as what exports its classes; a client needs no import
// attribute for functions.
#ifndef TOLVA_API
#define TOLVA_API
#endif

struct ORVEL_WLAN_PROFILE;  // records.h
enum ORVEL_OPMODE : int { ORVEL_OPMODE_BSS = 1, ORVEL_OPMODE_IBSS = 2 };
enum ORVEL_ALGORITHM : int {};
enum ORVEL_AUTHMODE : int {};

/// An assumption, not a fact: the maker publishes neither size nor layout of its objects, which
/// live in the caller's memory. Every object gets this room, in bytes, aligned to 16; a library
/// whose objects need more would write beyond it.
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
