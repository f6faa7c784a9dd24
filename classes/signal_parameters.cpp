#include "classes/signal_parameters.h"

#include "classes/record_class.h"
#include "classes/record_fields.h"

namespace wifi {
namespace {

using adapterapi::SignalParametersRecord;

constexpr FieldRow<SignalParametersRecord> kSignalFields[] = {
    {OLESTR("SignalQuality"),
     Code<&SignalParametersRecord::quality, adapterapi::codes::kSignalQualities>},
    {OLESTR("PercentMissedBeacons"), Number<&SignalParametersRecord::percentMissedBeacons>},
    {OLESTR("PercentTxRetries"), Number<&SignalParametersRecord::percentTxRetries>},
    {OLESTR("CrcErrors"), Number<&SignalParametersRecord::crcErrors>},
    {OLESTR("RSSI"), Decimal<&SignalParametersRecord::rssi>},
};

}  // namespace

HRESULT FillSignalParameters(ProviderState& state, IWbemClassObject* instance,
                             AdapterEntry& entry) {
  const HRESULT keyPut = PutSettingId(instance, entry);
  SignalParametersRecord record = {};
  const HRESULT status = ReadRecord(
      state, entry, "Getting signal parameter information for WiFi_AdapterSignalParameters",
      adapterapi::operation::GetSignalParameters, record, keyPut);
  if (status != 0) return WBEM_E_NOT_FOUND;
  PropertyWriter writer(instance, PutRule::kStopAtFailure);
  PutFields(writer, kSignalFields, record);
  return writer.result();
}

}  // namespace wifi
