#pragma once
// Owns the objects of the profile library and calls them inside the fence, so that every exception
// of the library becomes a C++ exception.
//
//     PreferredProfile profile;
//     ProfileLibrary library;
//     if (library.Open() && library.GetFirst(profile, store) == kTolvaSuccess) Deliver(profile);

#include <new>
#include <string>
#include <utility>

#include "adapterapi/call_trace.h"
#include "adapterapi/records.h"
#include "adapterapi/tolva_api.h"
#include "platform/structured_exception.h"

namespace wifi {

/// An object of the library.
template <class Object>
class LibraryObject {
 public:
  LibraryObject() {
    platform::CallFenced([this] { object_ = new (storage_) Object; });
  }
  LibraryObject(const LibraryObject&) = delete;
  LibraryObject& operator=(const LibraryObject&) = delete;
  ~LibraryObject() {
    platform::Survives([this] { object_->~Object(); });  // an exception is ignored
  }

  /// Calls `use` (Object& to anything) and returns its result.
  template <class Use>
  auto Call(Use&& use) {
    return platform::CallFenced([&] { return use(*object_); });
  }

 private:
  alignas(Object) unsigned char storage_[sizeof(Object)];
  Object* object_ = nullptr;
};

/// One profile. The returned texts belong to the library and are valid until the next load.
using PreferredProfile = LibraryObject<CPreferredProfile>;

/// One session with the library, for the duration of one request.
class ProfileLibrary {
 public:
  ProfileLibrary() {
    adapterapi::TracedCall("CProfileMgr::SetWiFiProvider", "", [this] {
      manager_.Call([](CProfileMgr& manager) { manager.SetWiFiProvider(true); });
      return 0;
    });
  }

  /// Opens the profiles. Returns whether it succeeded; only then Close() must be called.
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

  /// Loads the first profile of a store. Returns kTolvaSuccess if there is one.
  LONG GetFirst(PreferredProfile& profile, ULONG store) {
    return Load("CProfileMgr::GetFirstPreferredProfile", profile, store,
                &CProfileMgr::GetFirstPreferredProfile);
  }
  /// Loads the next profile. Returns kTolvaNoMoreProfiles after the last one.
  LONG GetNext(PreferredProfile& profile, ULONG store) {
    return Load("CProfileMgr::GetNextPreferredProfile", profile, store,
                &CProfileMgr::GetNextPreferredProfile);
  }

  /// Fills the record of the profile with this ANSI name. Returns a negative status if it cannot.
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
