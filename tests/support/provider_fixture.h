#pragma once

#include <gtest/gtest.h>

#include <memory>

#include "provider/server/instance_provider.h"
#include "tests/support/fake_adapter_api.h"
#include "tests/support/fake_wbem.h"

namespace testing_support {

/// A sink that the test and the provider share.
inline platform::ComPtr<FakeSink> MakeSink(InstanceScript& script) {
  return platform::ComPtr<FakeSink>::Adopt(new FakeSink(script));
}

/// Leaves bytes on the stack that would show in a record that is not cleared.
inline void DirtyStack() {
  volatile unsigned char bytes[8192];
  for (volatile unsigned char& byte : bytes) byte = 0xEE;
}

/// One adapter of the maker, as the library and the platform report it.
struct AdapterSetup {
  std::uint32_t number;
  const char* deviceId;
  std::uint8_t lastMacByte;  ///< the address is 00:A0:F8:00:00:xx
};

/// What class routines need: a state with adapters and a namespace, without a provider object.
class StateFixture : public ::testing::Test {
 protected:
  StateFixture() {
    state.services = services;
    state.adapters = std::make_shared<wifi::AdapterMap>();
    state.initialized = 1;
  }

  wifi::AdapterEntry& AddAdapter(const char* key, std::uint32_t number) {
    wifi::AdapterEntry& entry = (*state.adapters)[key];
    entry.key = key;
    entry.deviceId = platform::WideText(key);
    entry.macAddress = OLESTR("00:A0:F8:00:00:01");
    entry.caption = OLESTR("Caption ") + entry.deviceId;
    entry.description = OLESTR("Description ") + entry.deviceId;
    entry.number = number;
    return entry;
  }
  wifi::Delivery delivery() { return {sink.get(), nullptr}; }
  platform::ComPtr<FakeObject> MakeObject() {
    return platform::ComPtr<FakeObject>::Adopt(new FakeObject(script));
  }

  Journal journal;
  FakeAdapterApi api{journal};
  InstanceScript script{journal};
  platform::ComPtr<FakeSink> sink = MakeSink(script);
  platform::ComPtr<IWbemServices> services =
      platform::ComPtr<IWbemServices>::Adopt(new FakeNamespace(script));
  FakeNamespace& fakeNamespace = static_cast<FakeNamespace&>(*services.get());
  wifi::ProviderMemory memory;
  wifi::ProviderState state{api, memory};
};

/// A complete provider object, initialised with the adapters that a test adds.
class ProviderFixture : public StateFixture {
 protected:
  /// Makes the library and the platform report these adapters, and calls Initialize.
  HRESULT Initialize(const std::vector<AdapterSetup>& adapters);

  platform::ComPtr<wifi::InstanceProvider> provider =
      platform::ComPtr<wifi::InstanceProvider>::Adopt(new wifi::InstanceProvider(api));
  std::vector<std::uint8_t> adapterList;  ///< returned by GetAdapterList
  std::vector<LONG> initStatuses;

  void SetAdapterList(const std::vector<adapterapi::AdapterListRecord>& records);
  void AddPlatformAdapter(const char* deviceId, const char* pnpDeviceId, const char* macAddress);
  HRESULT InitializeOnly() { return InitializeOnly(*provider.get()); }
  HRESULT InitializeOnly(IWbemProviderInit& target);
};

}  // namespace testing_support
