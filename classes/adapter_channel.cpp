#include "classes/adapter_channel.h"

#include "classes/record_class.h"
#include "classes/record_fields.h"
#include "classes/updated_adapter.h"

namespace wifi {
namespace {

namespace codes = adapterapi::codes;
using adapterapi::IbssPreferencesRecord;

/// The channels of a bit set, each followed by ", ", even the last one.
template <auto Member, const auto& Channels>
HRESULT ChannelList(PropertyWriter& writer, const OLECHAR* property,
                    const IbssPreferencesRecord& record) {
  return writer.PutAnsi(property, TextOfAllBits(Channels, NumberOf<Member>(record)));
}

constexpr FieldRow<IbssPreferencesRecord> kIbssFields[] = {
    {OLESTR("ChannelA"), Number<&IbssPreferencesRecord::channelA>},
    {OLESTR("ChannelA_Default"), Number<&IbssPreferencesRecord::channelADefault>},
    {OLESTR("ChannelA_Options"),
     ChannelList<&IbssPreferencesRecord::channelAOptions, codes::k5GhzChannels>},
    {OLESTR("ChannelB"), Number<&IbssPreferencesRecord::channelB>},
    {OLESTR("ChannelB_Default"), Number<&IbssPreferencesRecord::channelBDefault>},
    {OLESTR("ChannelB_Options"),
     ChannelList<&IbssPreferencesRecord::channelBOptions, codes::k2GhzChannels>},
};

HRESULT PutChannels(IWbemClassObject* instance, const IbssPreferencesRecord& record) {
  PropertyWriter writer(instance, PutRule::kGoOn);
  for (const auto& [property, put] : kIbssFields) {
    if (FAILED(put(writer, property, record))) {
      platform::ShortText<64> line;
      line.Add("FillAdapterChannles:AddProperty ").Ascii(property).Add(" failed!");
      TraceMessage(line.c_str());
    }
  }
  return writer.result();
}

HRESULT ReadNumber(IWbemClassObject* instance, const OLECHAR* property, std::uint32_t& number) {
  platform::Variant value;
  HRESULT result = GetPropertyValue(*instance, property, value);
  if (SUCCEEDED(result)) result = value.ChangeType(VT_I4);
  if (SUCCEEDED(result)) number = static_cast<std::uint32_t>(value.get().lVal);
  return result;
}

HRESULT Refused(const char* line) {
  TraceMessage(line);
  return WBEM_E_PROVIDER_FAILURE;
}

}  // namespace

// The trace lines keep their known spelling, and a different name for the operation.
HRESULT FillAdapterChannel(ProviderState& state, IWbemClassObject* instance, AdapterEntry& entry) {
  HRESULT result = PutSettingId(instance, entry);
  TraceMessage("Getting Adapter Channel information for WiFi_AdapterChannel");
  IbssPreferencesRecord record = {};
  const GuardedResult read =
      GuardedCall(state.api, adapterapi::operation::GetChannelInfo, entry.number, record);
  if (!read.raised) {
    TraceMessage(read.status == 0 ? "FillAdapterChannles: QuarnAPI GetIbssPreferences succedded"
                                  : "FillAdapterChannles: QuarnAPI GetIbssPreferences failed");
    result = read.status;
  }
  if (result == 0) result = PutChannels(instance, record);
  if (SUCCEEDED(result)) TraceMessage("Getting channel inof successded!");
  return result;
}

HRESULT UpdateAdapterChannel(ProviderState& state, IWbemClassObject* instance,
                             AdapterEntry& entry) {
  const HRESULT named = IsUpdateOf(instance, kSettingId, entry);
  if (named != S_OK) return FAILED(named) ? named : S_OK;

  std::uint32_t channelA = 0;
  std::uint32_t channelB = 0;
  const bool writesChannelA = SUCCEEDED(ReadNumber(instance, OLESTR("ChannelA"), channelA));
  if (FAILED(ReadNumber(instance, OLESTR("ChannelB"), channelB))) {
    return Refused("UpdateAdapterChannel: failed to change channel type!");
  }
  adapterapi::IbssPreferencesRecord record = {};
  if (state.api.GetChannelInfo(entry.number, &record) < 0) {
    return Refused("UpdateAdapterChannel:GetIbssPreferences() failed!");
  }
  // If ChannelA cannot be read, the library's value is kept; it does not mean channel 0.
  if (writesChannelA) record.channelA = channelA;
  record.channelB = channelB;
  const adapterapi::ApiStatus status = state.api.SetIbssPreferences(entry.number, &record);
  return status < 0 ? Refused("UpdateAdapterChannel:SetIbssPreferences() failed!") : status;
}

}  // namespace wifi
