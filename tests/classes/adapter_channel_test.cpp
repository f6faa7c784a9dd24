#include "classes/adapter_channel.h"

#include "tests/classes/filler_fixture.h"
#include "tests/classes/update_fixture.h"

namespace testing_support {
namespace {

using AdapterChannel = FillerFixture;

IbssPreferencesRecord Channels(std::uint32_t optionsA, std::uint32_t optionsB) {
  return RecordBytes<IbssPreferencesRecord>()
      .At(4, 36u)
      .At(8, 40u)
      .At(12, optionsA)
      .At(16, 6u)
      .At(20, 0xFFFFFFFFu)
      .At(24, optionsB)
      .record();
}

TEST_F(AdapterChannel, ChannelsAndTheirOptions) {
  api.onGetChannelInfo = Gives(Channels(0x0FFFFFFF, 0x3FFF));
  EXPECT_EQ(Fill(wifi::FillAdapterChannel), S_OK);
  EXPECT_EQ(Puts(),
            (Lines{"ChannelA=number:36", "ChannelA_Default=number:40",
                   "ChannelA_Options=text:34, 36, 38, 40, 42, 44, 46, 48, 52, 56, 60, 64, 100, "
                   "104, 108, 112, 116, 120, 124, 128, 132, 136, 140, 149, 153, 157, 161, 165, ",
                   "ChannelB=number:6", "ChannelB_Default=number:-1",
                   "ChannelB_Options=text:1, 2, 3, 4, 5, 6, 7, 8, 9, 10, 11, 12, 13, 14, "}));
  EXPECT_EQ(journal.traces(), (Lines{"Getting Adapter Channel information for WiFi_AdapterChannel",
                                     "FillAdapterChannles: QuarnAPI GetIbssPreferences succedded",
                                     "Getting channel inof successded!"}));
  api.onGetChannelInfo = Gives(Channels(0xF0000000, 0xFFFFC000));
  Fill(wifi::FillAdapterChannel);
  EXPECT_EQ(object->Last("ChannelA_Options"), "text:");
  EXPECT_EQ(object->Last("ChannelB_Options"), "text:");
}

TEST_F(AdapterChannel, EachChannelHasItsBit) {
  const char* const channels[] = {"34, ",  "36, ",  "38, ",  "40, ",  "42, ",  "44, ",  "46, ",
                                  "48, ",  "52, ",  "56, ",  "60, ",  "64, ",  "100, ", "104, ",
                                  "108, ", "112, ", "116, ", "120, ", "124, ", "128, ", "132, ",
                                  "136, ", "140, ", "149, ", "153, ", "157, ", "161, ", "165, "};
  for (std::uint32_t bit = 0; bit < std::size(channels); ++bit) {
    api.onGetChannelInfo = Gives(Channels(1u << bit, 1u << bit));
    Fill(wifi::FillAdapterChannel);
    EXPECT_EQ(object->Last("ChannelA_Options"), std::string("text:") + channels[bit]);
    EXPECT_EQ(object->Last("ChannelB_Options"),
              bit < 14 ? "text:" + std::to_string(bit + 1) + ", " : "text:");
  }
}

TEST_F(AdapterChannel, ChannelsTraceFailures) {
  script.putResults = {{"ChannelB_Options", E_FAIL}};
  Fill(wifi::FillAdapterChannel);
  EXPECT_EQ(journal.traces().back(), "FillAdapterChannles:AddProperty ChannelB_Options failed!");
  const std::pair<ApiStatus, const char*> cases[] = {
      {5, "Getting channel inof successded!"},
      {-5, "FillAdapterChannles: QuarnAPI GetIbssPreferences failed"}};
  for (const auto& [status, lastLine] : cases) {
    api.onGetChannelInfo = Answers(status);
    Fill(wifi::FillAdapterChannel);
    EXPECT_TRUE(journal.Has("trace FillAdapterChannles: QuarnAPI GetIbssPreferences failed"));
    EXPECT_EQ(journal.traces().back(), lastLine);
  }
}

}  // namespace
}  // namespace testing_support

namespace wifi {
namespace {

using platform::Variant;
using testing_support::FakeObject;
using testing_support::Raw;
using Strings = std::vector<std::string>;

class ChannelUpdate : public testing_support::UpdateFixture {
 protected:
  ChannelUpdate() {
    api.onGetChannelInfo = [this](auto adapter, adapterapi::IbssPreferencesRecord* record) {
      *record = {1, 36, 3, 4, 6, 6, 7, {8, adapter}};
      return statuses["GetChannelInfo"];
    };
    api.onSetIbssPreferences = [this](auto adapter,
                                      const adapterapi::IbssPreferencesRecord* record) {
      std::string text = std::to_string(adapter);
      const auto* words = reinterpret_cast<const std::uint32_t*>(record);
      for (std::size_t index = 0; index < sizeof(*record) / sizeof(*words); ++index) {
        text += " " + std::to_string(words[index]);
      }
      changes.push_back(text);
      return statuses["SetIbssPreferences"];
    };
  }
  platform::ComPtr<FakeObject> Channel(Variant channelA, Variant channelB) {
    auto object = Submitted("WiFi_AdapterChannel", "SettingID", "12");
    object->values["ChannelA"] = std::move(channelA);
    object->values["ChannelB"] = std::move(channelB);
    return object;
  }
};

TEST_F(ChannelUpdate, WritesTheTwoChannelsOfItsAdapterAlone) {
  EXPECT_EQ(Put(Channel(Variant::Integer(149), Variant::AnsiText("11"))), S_OK);
  // A ChannelA without a number leaves the library's channel unchanged.
  EXPECT_EQ(Put(Channel(Variant::AnsiText("x"), Variant::Integer(-1))), S_OK);
  EXPECT_EQ(Put(Channel(Raw(VT_NULL, 5), Variant::Integer(1))), S_OK);
  auto without = Channel(Variant(), Variant::Integer(1));
  without->values.erase("ChannelA");
  EXPECT_EQ(Put(without), S_OK);
  EXPECT_EQ(changes, (Strings{"112 1 149 3 4 11 6 7 8 112", "112 1 36 3 4 4294967295 6 7 8 112",
                              "112 1 36 3 4 1 6 7 8 112", "112 1 36 3 4 1 6 7 8 112"}));
  api.onGetChannelInfo = testing_support::Answers(0);  // without writing anything
  testing_support::DirtyStack();
  EXPECT_EQ(Put(Channel(Variant::Integer(1), Variant::Integer(2))), S_OK);
  EXPECT_EQ(changes.back(), "112 0 1 0 0 2 0 0 0 0");
}

TEST_F(ChannelUpdate, FailuresAreTracedAndStopIt) {
  const HRESULT failure = WBEM_E_PROVIDER_FAILURE;
  const std::string type = "UpdateAdapterChannel: failed to change channel type!";
  auto without = Channel(Variant::Integer(1), Variant());
  without->values.erase("ChannelB");
  EXPECT_EQ(Put(without), failure);
  EXPECT_EQ(Put(Channel(Variant::Integer(1), Variant::AnsiText("x"))), failure);
  EXPECT_EQ(journal.calls(), Strings{});
  statuses["GetChannelInfo"] = -1;
  EXPECT_EQ(Put(Channel(Variant::Integer(1), Variant::Integer(1))), failure);
  EXPECT_EQ(changes, Strings{});
  statuses = {{"GetChannelInfo", 1}, {"SetIbssPreferences", -1}};
  EXPECT_EQ(Put(Channel(Variant::Integer(1), Variant::Integer(1))), failure);
  statuses = {{"SetIbssPreferences", 7}};
  EXPECT_EQ(Put(Channel(Variant::Integer(1), Variant::Integer(1))), 7);
  EXPECT_EQ(journal.traces(),
            (Strings{type, type, "UpdateAdapterChannel:GetIbssPreferences() failed!",
                     "UpdateAdapterChannel:SetIbssPreferences() failed!"}));
}

}  // namespace
}  // namespace wifi
