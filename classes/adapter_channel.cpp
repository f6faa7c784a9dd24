#include "classes/adapter_channel.h"

#include "classes/record_class.h"
#include "classes/record_fields.h"
#include "platform/text.h"

namespace wifi {
namespace {

using adapterapi::IbssPreferencesRecord;

// Channel numbers by bit.
constexpr int k5GhzChannels[] = {34,  36,  38,  40,  42,  44,  46,  48,  52,  56,
                                 60,  64,  100, 104, 108, 112, 116, 120, 124, 128,
                                 132, 136, 140, 149, 153, 157, 161, 165};
constexpr int k2GhzChannels[] = {1, 2, 3, 4, 5, 6, 7, 8, 9, 10, 11, 12, 13, 14};

/// The channels of a bit set, each followed by ", ", the last one too. Bits beyond the table have
/// no channel.
template <auto Member, const auto& Channels>
platform::Variant ChannelList(const IbssPreferencesRecord& record) {
  std::string text;
  std::uint32_t bits = NumberOf<Member>(record);
  for (const int channel : Channels) {
    if ((bits & 1) != 0) text += FormatText("%d, ", channel);
    bits >>= 1;
  }
  return platform::Variant::AnsiText(text);
}

constexpr FieldRow<IbssPreferencesRecord> kFields[] = {
    {OLESTR("ChannelA"), Number<&IbssPreferencesRecord::channelA>},
    {OLESTR("ChannelA_Default"), Number<&IbssPreferencesRecord::channelADefault>},
    {OLESTR("ChannelA_Options"),
     ChannelList<&IbssPreferencesRecord::channelAOptions, k5GhzChannels>},
    {OLESTR("ChannelB"), Number<&IbssPreferencesRecord::channelB>},
    {OLESTR("ChannelB_Default"), Number<&IbssPreferencesRecord::channelBDefault>},
    {OLESTR("ChannelB_Options"),
     ChannelList<&IbssPreferencesRecord::channelBOptions, k2GhzChannels>},
};

HRESULT PutChannels(IWbemClassObject* instance, const IbssPreferencesRecord& record) {
  PropertyWriter writer(instance, PutRule::kGoOn);
  for (const auto& [property, value] : kFields) {
    if (FAILED(writer.Put(property, value(record)))) {
      TraceMessage("FillAdapterChannles:AddProperty " + platform::AnsiText(property) + " failed!");
    }
  }
  return writer.result();
}

}  // namespace

// The lines are spelled as readers of traces know them, and call the operation by another name.
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

}  // namespace wifi
