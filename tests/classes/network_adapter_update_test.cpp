#include "tests/classes/update_fixture.h"

namespace wifi {
namespace {

using platform::Variant;
using testing_support::FakeObject;
using testing_support::Raw;
using Strings = std::vector<std::string>;

constexpr HRESULT kProviderFailure = WBEM_E_PROVIDER_FAILURE;

/// The writable properties in their order, with their setters (and first argument for adapter "12")
/// and the trace lines for a missing property and for a setter that refuses. A `highest` of 0 means
/// a flag.
const struct Property {
  const char* name;
  LONG highest = 0;
  const char* setter;
  const char* first;
  const char* missing;
  const char* refused = nullptr;  ///< null: nothing is traced
} kProperties[] = {
    {.name = "RadioState",
     .setter = "SetRadioState",
     .first = "112",
     .missing = "UpdateAdapter: failed to get RadioState property",
     .refused = "UpdateAdapter: QuarnApi SetRadioState return error!"},
    {.name = "ReadyForProfileState",
     .setter = "SetReadyForProfileState",
     .first = "112",
     .missing = "UpdateAdapter: failed to get ReadyForProfileStated property",
     .refused = "UpdateAdapter: QuarnApi SetReadyForProfileState return error!"},
    {.name = "IBSSTxPower",
     .highest = 5,
     .setter = "SetIbssTxPower",
     .first = "112",
     .missing = "UpdateAdapter: failed to get IBSSTxPower from instance",
     .refused = "UpdateAdapterProperty: failed to update IBSSTxPower"},
    {.name = "PSPMode",
     .highest = 7,
     .setter = "SetPspMode",
     .first = "112",
     .missing = "UpdateAdapter: failed to get PSPMode from instance",
     .refused = "UpdateAdapter: QuarnApi SetPspMode returns error"},
    {.name = "ProtocolPreference",
     .highest = 8,
     .setter = "SetProtocolPreference",
     .first = "112",
     .missing = "UpdateAdapter: failed to get ProtocolPreference from instance",
     .refused = "UpdateAdapter: QuarnApi SetProtocolPreference returns error"},
    {.name = "ConnectionPreference",
     .highest = 4,
     .setter = "SetConnectionPreference",
     .first = "112",
     .missing = "UpdateAdapter: failed to get ConnectionPreference from instance",
     .refused = "UpdateAdapter: QuarnApi SetConnectionPreference returns erroe"},
    {.name = "XpZeroConfigEnabled",
     .setter = "EnableXpZeroConfig",
     .first = "112",
     .missing = "UpdateAdapter: failed to get XpZeroConfigEnabled property"},
    {.name = "AdapterState",
     .setter = "SetAdapter",
     .first = "112",
     .missing = "UpdateAdapter: failed to get AdapterState property"},
    {.name = "DisableRfControl",
     .setter = "SetBoosSeteing",
     .first = "426",
     .missing = "UpdateAdapter: failed to get ReadyForProfileStated property",
     .refused = "UpdateAdapter: failed to update DisableRfControl property"},
};

class NetworkAdapterUpdate : public testing_support::UpdateFixture {
 protected:
  /// An instance whose values request no change.
  platform::ComPtr<FakeObject> Adapter(const char* key = "12") {
    auto object = Submitted("WiFi_NetworkAdapter", "DeviceID", key);
    for (const Property& property : kProperties) {
      object->values[property.name] =
          property.highest == 0 ? Variant::Boolean(false) : Variant::Integer(0);
    }
    return object;
  }
  /// Puts an instance for adapter "12" in which one property differs.
  HRESULT PutOne(const char* property, Variant value) {
    auto object = Adapter();
    object->values[property] = std::move(value);
    return Put(object);
  }
  /// The same with the property's highest value, or with `flag` for a flag.
  HRESULT PutHighest(const Property& property, bool flag = true) {
    return PutOne(property.name, property.highest == 0 ? Variant::Boolean(flag)
                                                       : Variant::Integer(property.highest));
  }

  testing_support::OsVersionNotNt6 version;
};

TEST_F(NetworkAdapterUpdate, EachPropertyReachesOnlyItsAdapterAndOnlyOnce) {
  for (const Property& property : kProperties) {
    SCOPED_TRACE(property.name);
    changes.clear();
    const LONG value = property.highest == 0 ? 1 : property.highest;
    EXPECT_EQ(PutHighest(property), S_OK);
    EXPECT_EQ(PutHighest(property), S_OK);
    EXPECT_EQ(changes, Strings{std::string(property.setter) + " " + property.first + " " +
                               std::to_string(value)});
    EXPECT_EQ(PutHighest(property, false), S_OK);  // so that it is unset for the next row
  }
}

TEST_F(NetworkAdapterUpdate, ValuesOfOtherTypes) {
  EXPECT_EQ(PutOne("IBSSTxPower", Variant::AnsiText("1")), S_OK);
  EXPECT_EQ(PutOne("ReadyForProfileState", Raw(VT_I4, 2)), S_OK);
  EXPECT_EQ(changes, (Strings{"SetIbssTxPower 112 1", "SetReadyForProfileState 112 1"}));
}

TEST_F(NetworkAdapterUpdate, AnUnchangedLastPropertyAnswersAsItWasRead) {
  script.getResult = 1;
  EXPECT_EQ(Put(Adapter()), 1);
  EXPECT_EQ(changes, Strings{});
  EXPECT_EQ(PutOne("DisableRfControl", Variant::Boolean(true)), S_OK);
}

TEST_F(NetworkAdapterUpdate, ValuesThatSayNothingChangeNothing) {
  for (const Property& property : kProperties) {
    EXPECT_EQ(PutOne(property.name, Raw(VT_NULL, -1)), S_OK);
    EXPECT_EQ(PutOne(property.name, Raw(VT_ERROR, 1)), S_OK);
    EXPECT_EQ(PutOne(property.name, Variant::AnsiText("none")), S_OK);
    if (property.highest == 0) continue;
    EXPECT_EQ(PutOne(property.name, Variant::Integer(property.highest + 1)), S_OK);
    EXPECT_EQ(PutOne(property.name, Variant::Integer(-1)), S_OK);
  }
  EXPECT_EQ(PutOne("RadioState", Raw(VT_BOOL, 1)), S_OK);
  EXPECT_EQ(PutOne("RadioState", Raw(VT_I4, 0x10000)), S_OK);
  EXPECT_EQ(journal.calls(), Strings{});
}

TEST_F(NetworkAdapterUpdate, ALastKnownValueOfTheLibrarysOwnIsWrittenOnceAsOne) {
  api.onGetRadioState = testing_support::Gives(2u);
  const platform::Bstr name(OLESTR("WiFi_NetworkAdapter"));
  provider->CreateInstanceEnumAsync(name.get(), 0, nullptr, sink.get());
  EXPECT_EQ(PutHighest(kProperties[0]), S_OK);
  EXPECT_EQ(PutHighest(kProperties[0]), S_OK);
  EXPECT_EQ(changes, Strings{"SetRadioState 112 1"});
}

TEST_F(NetworkAdapterUpdate, TheKeyDecidesWhoseTheInstanceIs) {
  auto object = Adapter("13");
  object->values["RadioState"] = Variant::Boolean(true);
  EXPECT_EQ(Put(object), S_OK);
  object->values["DeviceID"] = Variant::Integer(12);
  EXPECT_EQ(Put(object), WBEM_E_INVALID_OBJECT);
  object->values.erase("DeviceID");
  EXPECT_EQ(Put(object), WBEM_E_INVALID_OBJECT);
  EXPECT_EQ(journal.calls(), Strings{});
  EXPECT_EQ(journal.traces(), Strings{});
  // Keys are ANSI texts: a full-width digit becomes the ordinary digit.
  object = Adapter();
  object->values["DeviceID"] = Variant::Text(OLESTR("\uFF112"));
  object->values["RadioState"] = Variant::Boolean(true);
  EXPECT_EQ(Put(object), S_OK);
  EXPECT_EQ(changes, Strings{"SetRadioState 112 1"});
}

TEST_F(NetworkAdapterUpdate, AMissingPropertyStopsBehindTheEarlierOnes) {
  for (const Property& property : kProperties) {
    SCOPED_TRACE(property.name);
    auto object = Adapter();
    object->values["IBSSTxPower"] = Variant::Integer(&property - kProperties < 5 ? 1 : 2);
    object->values.erase(property.name);
    EXPECT_EQ(Put(object), kProviderFailure);
    EXPECT_EQ(journal.traces().back(), property.missing);
  }
  EXPECT_EQ(changes, (Strings{"SetIbssTxPower 112 1", "SetIbssTxPower 112 2"}));
}

TEST_F(NetworkAdapterUpdate, ARefusalIsTracedAndTriedAgain) {
  for (const Property& property : kProperties) {
    if (property.refused == nullptr) continue;
    SCOPED_TRACE(property.name);
    statuses = {{property.setter, 1}};
    const bool last = std::string(property.name) == "DisableRfControl";
    for (int attempt = 0; attempt < 2; ++attempt) {
      changes.clear();
      journal.Clear();
      EXPECT_EQ(PutHighest(property), last ? kProviderFailure : S_OK);
      EXPECT_EQ(changes.size(), 1u);
      EXPECT_TRUE(journal.Has(std::string("trace ") + property.refused));
      EXPECT_EQ(last, journal.Has("trace UpdateAdapterProperty: SetBoosSeteing failed to set "
                                  "DisableRfControl!"));
    }
  }
}

TEST_F(NetworkAdapterUpdate, XpZeroConfigCountsAsWrittenWhateverTheLibrarySays) {
  statuses["EnableXpZeroConfig"] = -1;
  EXPECT_EQ(PutOne("XpZeroConfigEnabled", Variant::Boolean(true)), S_OK);
  EXPECT_EQ(PutOne("XpZeroConfigEnabled", Variant::Boolean(true)), S_OK);
  EXPECT_EQ(changes, Strings{"EnableXpZeroConfig 112 1"});
}

TEST_F(NetworkAdapterUpdate, AdapterStateGoesThroughTheDevice) {
  const std::string updating = "UpdateAdapter: Updating AdapterState...";
  const auto put = [&] { return PutOne("AdapterState", Variant::Boolean(true)); };
  statuses["GetDeviceInfo"] = 1;
  EXPECT_EQ(put(), S_OK);
  EXPECT_EQ(changes, Strings{});
  statuses = {{"SetAdapter", -5}};
  EXPECT_EQ(put(), S_OK);
  statuses = {{"SetAdapter", 5}};
  EXPECT_EQ(put(), S_OK);
  EXPECT_EQ(put(), S_OK);
  EXPECT_EQ(changes, Strings(2, "SetAdapter 112 1"));
  EXPECT_EQ(journal.traces(),
            (Strings{updating, "UpdateAdapterProperty:failed to get device info!", updating,
                     "UpdateAdapterProperty: QuarnApi SetAdapter returns error", updating,
                     "UpdateAdapterProperty: Update AdapterState succeeded!", updating}));
}

class NetworkAdapterUpdateOnNt6 : public testing_support::UpdateFixture {};

TEST_F(NetworkAdapterUpdateOnNt6, LeavesTwoPropertiesAlone) {
  auto object = Submitted("WiFi_NetworkAdapter", "DeviceID", "7");
  for (const Property& property : kProperties) {
    if (property.highest == 0) object->values[property.name] = Variant::Boolean(true);
    if (property.highest != 0) object->values[property.name] = Variant::Integer(3);
  }
  object->values.erase("ReadyForProfileState");
  object->values.erase("AdapterState");
  EXPECT_EQ(Put(object), S_OK);
  EXPECT_EQ(changes, (Strings{"SetRadioState 107 1", "SetIbssTxPower 107 3", "SetPspMode 107 3",
                              "SetProtocolPreference 107 3", "SetConnectionPreference 107 3",
                              "EnableXpZeroConfig 107 1", "SetBoosSeteing 426 1"}));
}

}  // namespace
}  // namespace wifi
