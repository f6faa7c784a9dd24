#pragma once
// Classes with one instance for each adapter, filled from one record of the adapter control
// library.
//
//     constexpr RecordClass<TxRxStatsRecord> kStatistics = {
//         .name = OLESTR("WiFi_AdapterTxRxStats"), .getter = operation::GetTxRxStats, ...};
//     return EnumerateRecords(state, delivery, kStatistics);  // or GetRecordObject, with a path

#include "provider/core/guarded_call.h"
#include "provider/core/instance.h"

namespace wifi {

template <class Record>
using RecordGetter = adapterapi::Operation<adapterapi::AdapterNumber, Record*>;

/// Puts the key. An exception of the instance passes through and ends the request.
inline HRESULT PutSettingId(IWbemClassObject* instance, const AdapterEntry& entry) {
  return PutOrRethrow(instance, kSettingId, platform::Variant::Text(entry.deviceId).get());
}

/// Traces `line`, then calls the library with GuardedCall to fill the cleared `record`. Returns the
/// status of the library. After an exception it returns `ifRaised`: if that is 0, the caller goes
/// on with the cleared record.
template <class Record>
HRESULT ReadRecord(ProviderState& state, const AdapterEntry& entry, const char* line,
                   const RecordGetter<Record>& getter, Record& record, HRESULT ifRaised) {
  TraceMessage(line);
  const GuardedResult result = GuardedCall(state.api, getter, entry.number, record);
  return result.raised ? ifRaised : result.status;
}

/// A class whose record is read before its instance is made. An exception of the library passes
/// through.
template <class Record>
struct RecordClass {
  const OLECHAR* name;
  const RecordGetter<Record>& getter;
  const char* enumerateLine;  ///< traced before the call for an enumeration
  const char* getLine;        ///< traced before the call for a get by key
  HRESULT (*fill)(ProviderState&, IWbemClassObject*, const AdapterEntry&, const Record&);
  bool successIsZero = false;  ///< a success code of the sink counts as 0, so enumeration goes on
};

/// Indicates the instance of one adapter; WBEM_E_NOT_FOUND if the library has no record for it.
template <class Record>
HRESULT DeliverRecord(ProviderState& state, const Delivery& delivery,
                      const RecordClass<Record>& shown, const char* line,
                      const AdapterEntry& entry) {
  TraceMessage(line);
  Record record = {};
  if ((state.api.*shown.getter.call)(entry.number, &record) != 0) return WBEM_E_NOT_FOUND;
  const HRESULT result = DeliverInstance(
      state, delivery, shown.name,
      [&](IWbemClassObject* instance) { return shown.fill(state, instance, entry, record); });
  return shown.successIsZero && SUCCEEDED(result) ? WBEM_S_NO_ERROR : result;
}

/// Indicates the instance of every adapter, until one fails.
template <class Record>
HRESULT EnumerateRecords(ProviderState& state, const Delivery& delivery,
                         const RecordClass<Record>& shown) {
  return VisitAdapters(state, [&](AdapterEntry& entry) {
    return DeliverRecord(state, delivery, shown, shown.enumerateLine, entry);
  });
}

/// Indicates the instance of the adapter that the path names; WBEM_E_NOT_FOUND if there is no such
/// adapter.
template <class Record>
HRESULT GetRecordObject(ProviderState& state, const Delivery& delivery, const ParsedPath& path,
                        const RecordClass<Record>& shown) {
  const AdapterEntry* entry = FindAdapterByPath(state, path, kSettingId);
  return entry == nullptr ? WBEM_E_NOT_FOUND
                          : DeliverRecord(state, delivery, shown, shown.getLine, *entry);
}

}  // namespace wifi
