#pragma once

#include <functional>
#include <map>
#include <string>
#include <vector>

#include "adapterapi/records.h"
#include "adapterapi/tolva_api.h"
#include "tests/support/journal.h"

namespace testing_support {

struct FakeProfile {
  const char* name = "";
  const char* ssid = "";
  const char* mandatoryAp = "";
  int opMode = 0;
  int stealth = 0;
  int algorithm = 0;
  int authMode = 0;
};

/// The behaviour of the profile library's two classes during its lifetime; without such an object
/// the library does not open. Every call is in the journal as "tolva MEMBER(arguments)".
class FakeProfileLibrary {
 public:
  explicit FakeProfileLibrary(Journal& events) : journal(events) { current = this; }
  FakeProfileLibrary(const FakeProfileLibrary&) = delete;
  FakeProfileLibrary& operator=(const FakeProfileLibrary&) = delete;
  ~FakeProfileLibrary() { current = nullptr; }

  Journal& journal;
  LONG openStatus = kTolvaSuccess;
  /// By store flag.
  std::map<unsigned, std::vector<FakeProfile>> stores;
  /// The status that the n-th Get…PreferredProfile (from 1) returns instead, without changing the
  /// profile.
  std::map<int, LONG> loadStatuses;
  bool endless = false;  ///< every load succeeds, even after the last profile
  std::function<LONG(ORVEL_WLAN_PROFILE&)> onGetProfileToApply;
  /// The journal entry at which the library throws.
  std::string throwsAt;

  /// Called for every journalled call.
  std::function<void(const std::string&)> onCall;

  /// Journals a call, and throws if it is the chosen one.
  static void Note(const std::string& call);
  /// The same for the destruction of an object, which must not throw.
  static void NoteEnd(const char* call);

  static inline FakeProfileLibrary* current = nullptr;
  std::size_t next = 0;  ///< in the store being walked
  int loads = 0;
};

}  // namespace testing_support
