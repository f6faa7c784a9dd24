#pragma once
// Classes with one instance for each entry of a list that the adapter control library owns.

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

/// The key that names an entry, read from the path once for all entries.
struct WantedKey {
  const OLECHAR* text;  ///< null if the path has none, or it is no text
  std::string ansi;
};

template <class Entry>
struct ListClass {
  const OLECHAR* name;
  const ListGetter<Entry>& getter;
  const char* enumerateLine;       ///< traced before the call for an enumeration
  const char* getLine;             ///< traced before the call for a get by key
  const char* doneLine = nullptr;  ///< traced after a call that succeeded; may be none
  void (*fill)(PropertyWriter&, const AdapterEntry&, const Entry&);
  const OLECHAR* key;  ///< the path's second one
  bool (*matches)(const Entry&, const WantedKey&);
};

/// The adapter's list, read without a guard; none if the library refuses it.
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

/// Indicates an instance for each entry of every adapter's list. A failing entry does not stop the
/// ones after it; an adapter whose last entry fails, or whose list is empty, refused or not to be
/// read to its end (WBEM_E_NOT_FOUND), ends the enumeration.
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

/// Indicates the first entry that the path's keys name; WBEM_E_NOT_FOUND without one.
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
