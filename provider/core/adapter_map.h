#pragma once

#include <map>
#include <string>
#include <string_view>

#include "adapterapi/records.h"
#include "platform/variant.h"

namespace wifi {

/// An adapter that the provider serves, as discovery found it.
struct AdapterEntry {
  std::string key;                 ///< its key in the map: the device id in the ANSI code page
  platform::OleString deviceId;    ///< DeviceID of its Win32_NetworkAdapter; its key in every class
  platform::OleString macAddress;  ///< as the platform wrote it
  platform::OleString caption;     ///< may be empty
  platform::OleString description;  ///< may be empty
  platform::Variant work;           ///< the last value that was put into Associated
  /// The result of IsAssociated. Never changed.
  platform::Variant associationFlag = platform::Variant::Boolean(false);
  adapterapi::AdapterNumber number = 0;  ///< its number in the adapter control library
};

/// The served adapters by key (AdapterEntry::key), compared byte by byte.
using AdapterMap = std::map<std::string, AdapterEntry, std::less<>>;

/// The entry with exactly this key; null if there is none or `adapters` is null.
inline AdapterEntry* FindAdapterEntry(AdapterMap* adapters, std::string_view key) {
  if (adapters == nullptr) return nullptr;
  const auto found = adapters->find(key);
  return found == adapters->end() ? nullptr : &found->second;
}

}  // namespace wifi
