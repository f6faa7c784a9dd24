// Discovery against the platform's own management namespace. Every adapter of this machine is from
// another maker, even if the library reports all their addresses.

#include <gtest/gtest.h>
#include <wbemidl.h>

#include <cstdio>
#include <cstring>

#include "platform/text.h"
#include "provider/server/discovery.h"
#include "tests/support/fake_adapter_api.h"
#include "tests/support/fake_wbem.h"

namespace wifi {
namespace {

using platform::Bstr;
using platform::ComPtr;
using platform::Variant;
using testing_support::FakeAdapterApi;
using testing_support::FakeNamespace;
using testing_support::FakeObject;
using testing_support::InstanceScript;
using testing_support::Journal;

class RealNamespace : public ::testing::Test {
 protected:
  void SetUp() override {
    ASSERT_TRUE(SUCCEEDED(CoInitializeEx(nullptr, COINIT_APARTMENTTHREADED)));
    ComPtr<IWbemLocator> locator;
    ASSERT_EQ(CoCreateInstance(CLSID_WbemLocator, nullptr, CLSCTX_INPROC_SERVER, IID_IWbemLocator,
                               locator.put_void()),
              S_OK);
    const Bstr name(OLESTR("root\\cimv2"));
    ASSERT_EQ(locator->ConnectServer(name.get(), nullptr, nullptr, nullptr, 0, nullptr, nullptr,
                                     services.put()),
              S_OK);
  }
  void TearDown() override {
    services.reset();
    CoUninitialize();
  }

  std::vector<ComPtr<IWbemClassObject>> Objects(const OLECHAR* className) {
    std::vector<ComPtr<IWbemClassObject>> objects;
    const Bstr name(className);
    ComPtr<IEnumWbemClassObject> enumeration;
    EXPECT_EQ(services->CreateInstanceEnum(name.get(), 0, nullptr, enumeration.put()), S_OK);
    ComPtr<IWbemClassObject> object;
    ULONG returned = 0;
    while (enumeration && enumeration->Next(WBEM_INFINITE, 1, object.put(), &returned) == S_OK) {
      objects.push_back(object);
    }
    return objects;
  }
  static Variant Value(const ComPtr<IWbemClassObject>& object, const OLECHAR* property) {
    Variant value;
    object->Get(property, 0, value.put(), nullptr, nullptr);
    return value;
  }

  ComPtr<IWbemServices> services;
};

TEST_F(RealNamespace, EveryForeignAdapterIsPassedOver) {
  const auto platformAdapters = Objects(OLESTR("Win32_NetworkAdapter"));
  ASSERT_FALSE(platformAdapters.empty()) << "this machine shows no network adapter";

  // The library reports every address of this machine.
  std::vector<std::uint8_t> list(4 +
                                 platformAdapters.size() * sizeof(adapterapi::AdapterListRecord));
  const auto count = static_cast<std::uint32_t>(platformAdapters.size());
  std::memcpy(list.data(), &count, sizeof(count));
  for (std::size_t index = 0; index < platformAdapters.size(); ++index) {
    auto* record = reinterpret_cast<adapterapi::AdapterListRecord*>(list.data() + 4) + index;
    const std::string address =
        platform::AnsiText(Value(platformAdapters[index], OLESTR("MACAddress")).text());
    unsigned mac[6] = {};
    ASSERT_EQ(std::sscanf(address.c_str(), "%2x:%2x:%2x:%2x:%2x:%2x", &mac[0], &mac[1], &mac[2],
                          &mac[3], &mac[4], &mac[5]),
              6);
    for (int byte = 0; byte < 6; ++byte) {
      record->macAddress[byte] = static_cast<std::uint8_t>(mac[byte]);
    }
    record->present = 1;
  }
  Journal journal;
  FakeAdapterApi api(journal);
  api.onGetAdapterList = [&](const adapterapi::AdapterList** table) {
    *table = reinterpret_cast<const adapterapi::AdapterList*>(list.data());
    return 0;
  };

  // A platform reports a property that its class lacks; Wine's class has no Caption.
  Variant caption;
  const HRESULT captionRead =
      platformAdapters[0]->Get(OLESTR("Caption"), 0, caption.put(), nullptr, nullptr);
  ProviderMemory memory;
  ProviderState state(api, memory);
  state.adapters = std::make_shared<AdapterMap>();
  state.services = services;
  EXPECT_EQ(DiscoverAdapters(state), captionRead);
  EXPECT_TRUE(state.adapters->empty());
  EXPECT_TRUE(journal.Has("trace Number of Adapter:" + std::to_string(count)));

  const auto systems = Objects(OLESTR("Win32_ComputerSystem"));
  ASSERT_EQ(systems.size(), 1u);
  const std::string name = platform::AnsiText(Value(systems[0], OLESTR("UserName")).text());
  const std::string user = name.substr(name.rfind('\\') + 1);
  EXPECT_FALSE(user.empty());
  EXPECT_EQ(state.memory.encodedUser, EncodeIdentity(user));

  // The same objects with a Caption that is NULL, as the platform's own class has it.
  InstanceScript script{journal};
  const auto completed = ComPtr<FakeNamespace>::Adopt(new FakeNamespace(script));
  for (const auto& adapter : platformAdapters) {
    auto object = ComPtr<FakeObject>::Adopt(new FakeObject(script));
    object->values["DeviceID"] = Value(adapter, OLESTR("DeviceID"));
    object->values["PNPDeviceID"] = Value(adapter, OLESTR("PNPDeviceID"));
    object->values["MACAddress"] = Value(adapter, OLESTR("MACAddress"));
    object->values["Caption"] = Variant();
    object->values["Description"] = Value(adapter, OLESTR("Description"));
    completed->platformObjects["Win32_NetworkAdapter"].emplace_back(object.get());
  }
  state.services = ComPtr<IWbemServices>(completed.get());
  EXPECT_EQ(DiscoverAdapters(state), 0);
  EXPECT_TRUE(state.adapters->empty());
}

}  // namespace
}  // namespace wifi
