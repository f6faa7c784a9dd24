#include "tests/support/provider_fixture.h"

#include <cstring>

#include "adapterapi/mac_text.h"

namespace testing_support {
namespace {

using platform::ComPtr;
using platform::Variant;

class InitSink final : public FakeUnknown<IWbemProviderInitSink> {
 public:
  explicit InitSink(std::vector<LONG>& statuses) : statuses_(statuses) {}
  HRESULT STDMETHODCALLTYPE SetStatus(LONG status, LONG flags) override {
    {
      const Side outside(false);
      EXPECT_EQ(flags, 0);
      statuses_.push_back(status);
    }
    const Outgoing call(Step::kStatus);
    return call.struck() ? call.code() : S_OK;
  }

 private:
  std::vector<LONG>& statuses_;
};

}  // namespace

void ProviderFixture::SetAdapterList(const std::vector<adapterapi::AdapterListRecord>& records) {
  const auto count = static_cast<std::uint32_t>(records.size());
  adapterList.resize(sizeof(count) + records.size() * sizeof(records[0]));
  std::memcpy(adapterList.data(), &count, sizeof(count));
  if (count != 0) {
    std::memcpy(adapterList.data() + sizeof(count), records.data(), count * sizeof(records[0]));
  }
  api.onGetAdapterList = [this](const adapterapi::AdapterList** list) {
    *list = reinterpret_cast<const adapterapi::AdapterList*>(adapterList.data());
    return 0;
  };
}

void ProviderFixture::AddPlatformAdapter(const char* deviceId, const char* pnpDeviceId,
                                         const char* macAddress) {
  ComPtr<FakeObject> object = MakeObject();
  const auto text = [](const char* value) {
    return value == nullptr ? Variant() : Variant::AnsiText(value);
  };
  object->values["DeviceID"] = text(deviceId);
  object->values["PNPDeviceID"] = text(pnpDeviceId);
  object->values["MACAddress"] = text(macAddress);
  object->values["Caption"] = Variant::AnsiText("Caption");
  object->values["Description"] = Variant::AnsiText("Description");
  fakeNamespace.platformObjects["Win32_NetworkAdapter"].push_back(
      ComPtr<IWbemClassObject>(object.get()));
}

HRESULT ProviderFixture::InitializeOnly(IWbemProviderInit& target) {
  const Side outside(false);
  const auto initSink = ComPtr<InitSink>::Adopt(new InitSink(initStatuses));
  const Side inside(true);
  return target.Initialize(nullptr, 0, nullptr, nullptr, services.get(), nullptr, initSink.get());
}

HRESULT ProviderFixture::Initialize(const std::vector<AdapterSetup>& adapters) {
  std::vector<adapterapi::AdapterListRecord> records;
  for (const AdapterSetup& adapter : adapters) {
    adapterapi::AdapterListRecord& record = records.emplace_back();
    std::memset(&record, 0, sizeof(record));
    record.number = adapter.number;
    const std::uint8_t mac[6] = {0x00, 0xA0, 0xF8, 0x00, 0x00, adapter.lastMacByte};
    std::memcpy(record.macAddress, mac, sizeof(mac));
    record.present = 1;
    AddPlatformAdapter(adapter.deviceId, "PCI\\VEN_7F3C&DEV_4220",
                       adapterapi::MacText(record.macAddress).c_str());
  }
  SetAdapterList(records);
  return InitializeOnly();
}

}  // namespace testing_support
