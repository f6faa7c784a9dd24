#pragma once
// Classes with one instance for each entry of a list that the adapter control library owns.
//
//     constexpr ListClass<ExcludeEntryRecord> kExcludeList = {
//         .name = OLESTR("WiFi_NetworkExcludeList"), .getter = operation::GetExcludeList, ...};
//     return EnumerateLists(state, delivery, kExcludeList);  // or GetListEntry, with a path

#include <cstdint>
#include <string>

#include "adapterapi/operations.h"
#include "platform/foreign_memory.h"
#include "provider/core/property_writer.h"
#include "provider/core/trace.h"

namespace wifi {

using platform::ListStep;

template <class Entry>
using ListGetter =
    adapterapi::Operation<adapterapi::AdapterNumber, const adapterapi::LibraryList<Entry>**>;

/// The key that selects an entry, read once from the path.
struct WantedKey {
  const OLECHAR* text;  ///< null if the path does not have the key, or it is not a text
  std::string ansi;
};

template <class Entry>
struct ListClass {
  const OLECHAR* name;
  const ListGetter<Entry>& getter;
  const char* enumerateLine;       ///< traced before the call for an enumeration
  const char* getLine;             ///< traced before the call for a get by key
  const char* doneLine = nullptr;  ///< traced after a call that succeeded; may be null
  void (*fill)(PropertyWriter&, const AdapterEntry&, const Entry&);
  const OLECHAR* key;  ///< name of the key that selects an entry; the first key is SettingID
  bool (*matches)(const Entry&, const WantedKey&);
};

/// The list of the adapter; null if the library refuses. An exception of the library passes
/// through.
template <class Entry>
const adapterapi::LibraryList<Entry>* ReadList(ProviderState& state, const AdapterEntry& adapter,
                                               const ListClass<Entry>& shown, const char* line) {
  TraceMessage(line);
  const adapterapi::LibraryList<Entry>* list = nullptr;
  if ((state.api.*shown.getter.call)(adapter.number, &list) != 0) return nullptr;
  if (shown.doneLine != nullptr) TraceMessage(shown.doneLine);
  return list;
}

template <class Entry>
HRESULT DeliverEntry(const ProviderState& state, const Delivery& delivery,
                     const ListClass<Entry>& shown, PropertyWriter& writer,
                     const AdapterEntry& adapter, const Entry& entry) {
  return DeliverInstance(state, delivery, shown.name, [&](IWbemClassObject* instance) {
    writer.Begin(instance);
    shown.fill(writer, adapter, entry);
    return writer.result();
  });
}

/// Indicates an instance for each entry of every adapter's list. After an entry that fails, the
/// other entries of the adapter are still delivered. The enumeration stops after an adapter whose
/// last entry fails, or whose list is empty, refused or not readable to its end (WBEM_E_NOT_FOUND).
template <class Entry>
HRESULT EnumerateLists(ProviderState& state, const Delivery& delivery,
                       const ListClass<Entry>& shown) {
  PropertyWriter writer(PutRule::kStopAtFailure);
  return VisitAdapters(state, [&](AdapterEntry& adapter) {
    const auto* list = ReadList(state, adapter, shown, shown.enumerateLine);
    HRESULT result = WBEM_E_NOT_FOUND;
    Entry entry;
    ListStep step = ListStep::kEntry;
    for (std::int32_t index = 0;
         (step = platform::ReadListEntry(list, index, entry)) == ListStep::kEntry; ++index) {
      result = DeliverEntry(state, delivery, shown, writer, adapter, entry);
    }
    return step == ListStep::kEnd ? result : WBEM_E_NOT_FOUND;
  });
}

/// Indicates the first entry that the keys of the path name; WBEM_E_NOT_FOUND if there is none.
template <class Entry>
HRESULT GetListEntry(ProviderState& state, const Delivery& delivery, const ParsedPath& path,
                     const ListClass<Entry>& shown) {
  const AdapterEntry* adapter = FindAdapterByPath(state, path, kSettingId);
  if (adapter == nullptr) return WBEM_E_NOT_FOUND;
  const auto* list = ReadList(state, *adapter, shown, shown.getLine);
  const WantedKey wanted = {TextOf(GetPathKeyValue(path, shown.key)), PathKeyText(path, shown.key)};
  Entry entry;
  for (std::int32_t index = 0; platform::ReadListEntry(list, index, entry) == ListStep::kEntry;
       ++index) {
    if (!shown.matches(entry, wanted)) continue;
    PropertyWriter writer(PutRule::kStopAtFailure);
    return DeliverEntry(state, delivery, shown, writer, *adapter, entry);
  }
  return WBEM_E_NOT_FOUND;
}

}  // namespace wifi
