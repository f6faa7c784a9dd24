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

/// What the profile library's two classes do while this lives; without one the library does not
/// open. Every call is in the journal as "tolva MEMBER(arguments)".
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
  /// What the n-th Get…PreferredProfile (from 1) answers instead, leaving the profile as it is.
  std::map<int, LONG> loadStatuses;
  bool endless = false;  ///< every load succeeds, behind the last profile too
  std::function<LONG(ORVEL_WLAN_PROFILE&)> onGetProfileToApply;
  /// The journal entry at whose call the library throws.
  std::string throwsAt;

  /// Told of every journalled call.
  std::function<void(const std::string&)> onCall;

  /// Journals a call, and throws if it is the one.
  static void Note(const std::string& call);
  /// The same for the end of an object, which must not throw.
  static void NoteEnd(const char* call);

  static inline FakeProfileLibrary* current = nullptr;
  std::size_t next = 0;  ///< in the store that is being walked
  int loads = 0;
};

}  // namespace testing_support
