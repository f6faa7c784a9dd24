#pragma once

#include <map>
#include <string>
#include <string_view>

#include "adapterapi/records.h"
#include "platform/variant.h"

namespace wifi {

/// One served adapter, as discovery found it.
struct AdapterEntry {
  std::string key;                 ///< the key text, under which the map holds it
  platform::OleString deviceId;    ///< DeviceID of its Win32_NetworkAdapter; its key in every class
  platform::OleString macAddress;  ///< as the platform wrote it
  platform::OleString caption;     ///< may be empty
  platform::OleString description;  ///< may be empty
  platform::Variant work;           ///< last Associated value that was put for the adapter
  /// What IsAssociated answers: never set.
  platform::Variant associationFlag = platform::Variant::Boolean(false);
  adapterapi::AdapterNumber number = 0;  ///< the adapter control library's number
};

/// The served adapters by key text (the device id in the ANSI code page), ordered byte by byte.
using AdapterMap = std::map<std::string, AdapterEntry, std::less<>>;

/// The entry with exactly this key text, none otherwise and none without a map.
inline AdapterEntry* FindAdapterEntry(AdapterMap* adapters, std::string_view key) {
  if (adapters == nullptr) return nullptr;
  const auto found = adapters->find(key);
  return found == adapters->end() ? nullptr : &found->second;
}

}  // namespace wifi
