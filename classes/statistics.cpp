#include "classes/statistics.h"

#include <array>
#include <cstring>

#include "classes/record_class.h"
#include "platform/short_text.h"
#include "platform/text.h"
#include "provider/core/code_table.h"

namespace wifi {
namespace {

using adapterapi::TxRxStatsRecord;
using platform::SafeArray;
using platform::Variant;

struct ArrayProperty {
  platform::OleStringView name;
  const char* deletingLine;  ///< in two of them the case of a letter differs from the name
};

// In the order of ProviderMemory::statisticsArrays.
constexpr ArrayProperty kArrays[] = {
    {OLESTR("Rates"), "Deleting the Array Data for Rates"},
    {OLESTR("TxDirectPacketsRate"), "Deleting the Array Data for TxDirectPacketsrate"},
    {OLESTR("TxNonDirectPacketsRate"), "Deleting the Array Data for TxNonDirectPacketsRate"},
    {OLESTR("RxDirectPacketsRate"), "Deleting the Array Data for RxDirectpacketsRate"},
    {OLESTR("RxNonDirectPacketsRate"), "Deleting the Array Data for RxNonDirectPacketsRate"},
};
static_assert(std::size(kArrays) == std::tuple_size_v<decltype(ProviderMemory::statisticsArrays)>);

/// Creates the array for one array property (null if the name is unknown or memory is short). On
/// destruction it becomes `current`; the old `current` becomes `previous`, and the old `previous`
/// is freed. It is not stored earlier because Put may re-enter the provider and fill again.
class NewArray {
 public:
  NewArray(ProviderState& state, const OLECHAR* property) {
    for (std::size_t index = 0; index < std::size(kArrays); ++index) {
      if (kArrays[index].name != platform::ViewOf(property)) continue;
      slots_ = &state.memory.statisticsArrays[index];
      if (slots_->previous) TraceMessage(kArrays[index].deletingLine);
      slots_->previous = std::move(slots_->current);
      SAFEARRAYBOUND bound = {static_cast<ULONG>(kRateCount), 0};
      array_ = SafeArray(SafeArrayCreate(VT_BSTR, 1, &bound));
      return;
    }
  }
  NewArray(const NewArray&) = delete;
  NewArray& operator=(const NewArray&) = delete;
  ~NewArray() {
    if (slots_ != nullptr) slots_->current = std::move(array_);
  }
  SAFEARRAY* get() const { return array_.get(); }

 private:
  ArraySlots* slots_ = nullptr;
  SafeArray array_;
};

HRESULT StoreTexts(SAFEARRAY* array, std::span<const std::int32_t, kRateCount> values) {
  for (LONG index = 0; index < static_cast<LONG>(kRateCount); ++index) {
    const platform::Bstr element = platform::AnsiBstr(
        platform::ShortText<16>().Decimal(values[static_cast<std::size_t>(index)]));
    const HRESULT stored =
        element ? SafeArrayPutElement(array, &index, element.get()) : E_OUTOFMEMORY;
    if (FAILED(stored)) return stored;
  }
  return S_OK;
}

void TraceStoreFailure(HRESULT code) {
  constexpr CodeText kLines[] = {
      {static_cast<std::uint32_t>(DISP_E_BADINDEX), "Error is DISP_E_BADINDEX"},
      {static_cast<std::uint32_t>(E_OUTOFMEMORY), "Error is E_OUTOFMEMORY"},
      {static_cast<std::uint32_t>(E_INVALIDARG), "Error is E_INVALIDARG"},
  };
  const auto other = platform::ShortText<24>().Add("Error is ").Decimal(code);
  // Each of these texts is null-terminated.
  TraceMessage(TextOfCode(kLines, static_cast<std::uint32_t>(code), other).data());
}

/// Puts an array that the caller still owns.
HRESULT PutArray(IWbemClassObject* instance, const OLECHAR* property, SAFEARRAY* array) {
  VARIANT borrowed;
  VariantInit(&borrowed);
  borrowed.vt = VT_ARRAY | VT_BSTR;
  borrowed.parray = array;
  return PutOrRethrow(instance, property, borrowed);
}

struct CounterRow {
  const OLECHAR* property;
  std::size_t offset;
  bool perRate;  ///< sixteen values; otherwise one
};
constexpr CounterRow kCounterRows[] = {
    {OLESTR("Rates"), offsetof(TxRxStatsRecord, rates), true},
    {OLESTR("TxTotalPackets"), offsetof(TxRxStatsRecord, txTotalPackets), false},
    {OLESTR("TxTotalBytes"), offsetof(TxRxStatsRecord, txTotalBytes), false},
    {OLESTR("TxDirectPackets"), offsetof(TxRxStatsRecord, txDirectPackets), false},
    {OLESTR("TxDirectPacketsRate"), offsetof(TxRxStatsRecord, txDirectPacketsRate), true},
    {OLESTR("TxNonDirectPackets"), offsetof(TxRxStatsRecord, txNonDirectPackets), false},
    {OLESTR("TxNonDirectPacketsRate"), offsetof(TxRxStatsRecord, txNonDirectPacketsRate), true},
    {OLESTR("RxTotalPackets"), offsetof(TxRxStatsRecord, rxTotalPackets), false},
    {OLESTR("RxTotalBytes"), offsetof(TxRxStatsRecord, rxTotalBytes), false},
    {OLESTR("RxDirectPackets"), offsetof(TxRxStatsRecord, rxDirectPackets), false},
    {OLESTR("RxDirectPacketsRate"), offsetof(TxRxStatsRecord, rxDirectPacketsRate), true},
    {OLESTR("RxNonDirectPackets"), offsetof(TxRxStatsRecord, rxNonDirectPackets), false},
    {OLESTR("RxNonDirectPacketsRate"), offsetof(TxRxStatsRecord, rxNonDirectPacketsRate), true},
};

/// Returns the result of the last array. The results of all other puts are ignored.
HRESULT FillStatistics(ProviderState& state, IWbemClassObject* instance, const AdapterEntry& entry,
                       const TxRxStatsRecord& record) {
  TraceMessage("FillTxRxStats");
  PutSettingId(instance, entry);
  HRESULT result = S_OK;
  for (const CounterRow& row : kCounterRows) {
    // Unsigned in the library, but shown as signed.
    std::array<std::int32_t, kRateCount> values;
    std::memcpy(values.data(), reinterpret_cast<const std::uint8_t*>(&record) + row.offset,
                row.perRate ? sizeof(values) : sizeof(values[0]));
    if (row.perRate) {
      result = FillSafeArray(state, instance, row.property, values);
    } else {
      PutOrRethrow(instance, row.property,
                   Variant::AnsiText(platform::ShortText<16>().Decimal(values[0])).get());
    }
  }
  return result;
}

// Both lines name the exclude list.
constexpr RecordClass<TxRxStatsRecord> kStatistics = {
    .name = OLESTR("WiFi_AdapterTxRxStats"),
    .getter = adapterapi::operation::GetTxRxStats,
    .enumerateLine = "Getting exclude list for WiFi_AdapterTxRxStats",
    .getLine = "Getting network information for WiFi_NetworkExcludeList",
    .fill = FillStatistics,
};

}  // namespace

HRESULT FillSafeArray(ProviderState& state, IWbemClassObject* instance, const OLECHAR* property,
                      std::span<const std::int32_t, kRateCount> values) {
  TraceMessage("Inside the Fillsafearray");
  const NewArray array(state, property);
  if (array.get() == nullptr) {
    TraceMessage("Error out of memory");
    return E_OUTOFMEMORY;
  }
  HRESULT result = StoreTexts(array.get(), values);
  if (FAILED(result)) {
    TraceStoreFailure(result);
    result = WBEM_E_NOT_FOUND;
  } else {
    result = PutArray(instance, property, array.get());
  }
  TraceMessage("exiting the Fillsafearray");
  return result;
}

HRESULT EnumerateStatistics(ProviderState& state, const Delivery& delivery) {
  return EnumerateRecords(state, delivery, kStatistics);
}

HRESULT GetStatisticsObject(ProviderState& state, const Delivery& delivery,
                            const ParsedPath& path) {
  return GetRecordObject(state, delivery, path, kStatistics);
}

}  // namespace wifi
