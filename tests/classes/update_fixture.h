#pragma once

#include <cstring>

#include "tests/support/os_version.h"
#include "tests/support/provider_fixture.h"

namespace testing_support {

/// A provider with the adapters "10", "12" and "7" (in map order; numbers 110, 112, 107), whose
/// library records every requested change. A change returns its entry in `statuses`, else 0.
class UpdateFixture : public ProviderFixture {
 protected:
  UpdateFixture() {
    Initialize({{107, "7", 1}, {110, "10", 2}, {112, "12", 3}});
    api.onSetRadioState = Noting("SetRadioState");
    api.onSetReadyForProfileState = Noting("SetReadyForProfileState");
    api.onSetIbssTxPower = Noting("SetIbssTxPower");
    api.onSetPspMode = Noting("SetPspMode");
    api.onSetProtocolPreference = Noting("SetProtocolPreference");
    api.onSetConnectionPreference = Noting("SetConnectionPreference");
    api.onEnableXpZeroConfig = Noting("EnableXpZeroConfig");
    api.onSetBoosSeteing = Noting("SetBoosSeteing");
    api.onSetPolicyValue = Noting("SetPolicyValue");
    api.onGetDeviceInfo = [this](std::uint32_t adapter, adapterapi::DeviceInfoRecord* record) {
      EXPECT_EQ(record->cardType, 0u);  // cleared
      record->deviceId = static_cast<std::uint16_t>(adapter);
      return statuses["GetDeviceInfo"];
    };
    api.onSetAdapter = [this](const adapterapi::DeviceInfoRecord* record, std::uint32_t enable) {
      return Noting("SetAdapter")(record->deviceId, enable);
    };
    journal.Clear();
  }
  /// Puts with the stack as other calls leave it.
  HRESULT Put(const platform::ComPtr<FakeObject>& object) {
    DirtyStack();
    return provider->PutInstanceAsync(object.get(), 0, nullptr, sink.get());
  }

  std::function<adapterapi::ApiStatus(std::uint32_t, std::uint32_t)> Noting(const char* name) {
    return [this, name](std::uint32_t first, std::uint32_t second) {
      changes.push_back(std::string(name) + " " + std::to_string(first) + " " +
                        std::to_string(second));
      return statuses[name];
    };
  }

  /// An instance as a client submits it.
  platform::ComPtr<FakeObject> Submitted(const std::string& className, const char* keyName,
                                         const char* key) {
    platform::ComPtr<FakeObject> object = MakeObject();
    object->values["__PATH"] = platform::Variant::AnsiText(className + "=@");
    object->values["__CLASS"] = platform::Variant::AnsiText(className);
    if (keyName != nullptr) object->values[keyName] = platform::Variant::AnsiText(key);
    return object;
  }

  HRESULT Enumerate(const char* className) {
    sink->objects.clear();
    const platform::Bstr name(platform::WideText(className));
    return provider->CreateInstanceEnumAsync(name.get(), 0, nullptr, sink.get());
  }
  HRESULT Get(const char* path) {
    sink->objects.clear();
    const platform::Bstr text(platform::WideText(path));
    return provider->GetObjectAsync(text.get(), 0, nullptr, sink.get());
  }

  std::map<std::string, adapterapi::ApiStatus> statuses;
  std::vector<std::string> changes;  ///< "SetRadioState 107 1"
};

/// A value of a type that no factory of platform::Variant makes.
inline platform::Variant Raw(VARTYPE type, LONG bits) {
  platform::Variant value = platform::Variant::Integer(bits);
  value.in_place()->vt = type;
  return value;
}

}  // namespace testing_support
