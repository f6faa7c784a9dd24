#pragma once
// The profile library as the provider uses it: its two classes, owned, every call into them behind
// the fence, so that what the library raises is a C++ exception here.

#include <new>
#include <string>
#include <utility>

#include "adapterapi/call_trace.h"
#include "adapterapi/records.h"
#include "adapterapi/tolva_api.h"
#include "platform/structured_exception.h"

namespace wifi {

/// Owns an object of the library.
template <class Object>
class LibraryObject {
 public:
  LibraryObject() {
    platform::CallFenced([this] { object_ = new (storage_) Object; });
  }
  LibraryObject(const LibraryObject&) = delete;
  LibraryObject& operator=(const LibraryObject&) = delete;
  ~LibraryObject() {
    platform::Survives([this] { object_->~Object(); });  // gone either way
  }

  /// What `use` (Object& to anything) answers.
  template <class Use>
  auto Call(Use&& use) {
    return platform::CallFenced([&] { return use(*object_); });
  }

 private:
  alignas(Object) unsigned char storage_[sizeof(Object)];
  Object* object_ = nullptr;
};

/// Holds one profile, whichever the library loaded into it last; texts it gives stay its own.
using PreferredProfile = LibraryObject<CPreferredProfile>;

/// One session with the library, set to the provider's networks. Made for one request.
class ProfileLibrary {
 public:
  ProfileLibrary() {
    adapterapi::TracedCall("CProfileMgr::SetWiFiProvider", "", [this] {
      manager_.Call([](CProfileMgr& manager) { manager.SetWiFiProvider(true); });
      return 0;
    });
  }

  /// Whether the library opened its profiles. Only then Close() has to follow.
  bool Open() {
    constexpr ULONG kOpenArgument = 3000;
    return adapterapi::TracedCall("CProfileMgr::Open", "", [this] {
             return manager_.Call([](CProfileMgr& manager) { return manager.Open(kOpenArgument); });
           }) == kTolvaSuccess;
  }
  void Close() {
    adapterapi::TracedCall("CProfileMgr::Close", "", [this] {
      return manager_.Call([](CProfileMgr& manager) { return manager.Close(); });
    });
  }

  /// Loads a store's first profile; kTolvaSuccess if there is one.
  LONG GetFirst(PreferredProfile& profile, ULONG store) {
    return Load("CProfileMgr::GetFirstPreferredProfile", profile, store,
                &CProfileMgr::GetFirstPreferredProfile);
  }
  /// Loads the next one; kTolvaNoMoreProfiles behind the last.
  LONG GetNext(PreferredProfile& profile, ULONG store) {
    return Load("CProfileMgr::GetNextPreferredProfile", profile, store,
                &CProfileMgr::GetNextPreferredProfile);
  }

  /// Fills the whole record of the profile with this ANSI name; a negative status if it cannot.
  LONG GetProfileToApply(const std::string& name, ORVEL_WLAN_PROFILE& record) {
    constexpr ULONG kFlags = 1;
    return adapterapi::TracedCall(
        "CProfileMgr::GetProfileToApply", "(name)",
        [&] {
          return manager_.Call([&](CProfileMgr& manager) {
            return manager.GetProfileToApply(name.c_str(), record, kFlags);
          });
        },
        name.c_str());
  }

 private:
  using Loader = LONG (CProfileMgr::*)(CPreferredProfile&, ULONG);

  LONG Load(const char* operation, PreferredProfile& profile, ULONG store, Loader loader) {
    return adapterapi::TracedCall(
        operation, "(store)",
        [&] {
          return manager_.Call([&](CProfileMgr& manager) {
            return profile.Call(
                [&](CPreferredProfile& held) { return (manager.*loader)(held, store); });
          });
        },
        store);
  }

  LibraryObject<CProfileMgr> manager_;
};

}  // namespace wifi
