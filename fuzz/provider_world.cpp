#include "fuzz/provider_world.h"

#include <stdexcept>

#include "adapterapi/mac_text.h"
#include "platform/native/observe.h"

using namespace testing_support;
using adapterapi::AdapterListRecord;
using platform::Bstr;
using platform::ComPtr;
using platform::Variant;

namespace {

int LiveFakes() {
  return FakeUnknown<IWbemClassObject>::live + FakeUnknown<IWbemObjectSink>::live +
         FakeUnknown<IWbemServices>::live + FakeUnknown<IEnumWbemClassObject>::live;
}

int ImpersonationDepth() {
  const native::ImpersonationCounts counts = native::ImpersonationCountsOfThread();
  return counts.impersonated - counts.reverted;
}

AdapterListRecord Adapter(std::uint8_t lastMacByte) {
  AdapterListRecord record = {};
  record.number = lastMacByte;
  const std::uint8_t mac[6] = {0x00, 0xA0, 0xF8, 0x00, 0x00, lastMacByte};
  std::memcpy(record.macAddress, mac, sizeof(mac));
  record.present = 1;
  return record;
}

}  // namespace

HRESULT ClientObject::Get(LPCWSTR name, LONG, VARIANT* value, CIMTYPE*, LONG*) {
  const std::string property = platform::Utf8Text(platform::ViewOf(name));
  if (property == "__CLASS" || property == "__PATH") {
    value->vt = VT_BSTR;
    value->bstrVal = platform::AnsiBstr(class_ + (property == "__PATH" ? "=@" : "")).release();
    return S_OK;
  }
  // The key is mostly that of an adapter, because otherwise nothing else of the object is read.
  const std::uint8_t kind = source_.Take<std::uint8_t>();
  if ((property == "DeviceID" || property == "SettingID" || property == "AdapterID") &&
      kind < 224) {
    value->vt = VT_BSTR;
    value->bstrVal = platform::AnsiBstr("7").release();
    return S_OK;
  }
  if (kind == 255) return WBEM_E_NOT_FOUND;
  if (kind == 254) throw std::runtime_error("get");
  source_.Value(*value);
  return kind == 253 ? WBEM_S_FALSE : S_OK;
}

ProviderWorld::ProviderWorld(ByteSource& source)
    : source_(source), textsBefore_(native::LiveAllocations()) {
  services_ = ComPtr<FakeNamespace>::Adopt(new FakeNamespace(script_));
  provider_ = ComPtr<wifi::InstanceProvider>::Adopt(new wifi::InstanceProvider(api_));
  native::SetOsVersion(VER_PLATFORM_WIN32_NT, 5, 1);  // no property is left out
  const std::uint32_t count = 2;
  const AdapterListRecord records[] = {Adapter(1), Adapter(2)};
  adapters_.resize(sizeof(count) + sizeof(records));
  std::memcpy(adapters_.data(), &count, sizeof(count));
  std::memcpy(adapters_.data() + sizeof(count), records, sizeof(records));
  api_.onGetAdapterList = [this](const adapterapi::AdapterList** list) {
    *list = reinterpret_cast<const adapterapi::AdapterList*>(adapters_.data());
    return 0;
  };
  AddPlatformAdapter("7", 1);
  AddPlatformAdapter("8", 2);
  profiles_.stores[1] = {{"Home", "home", "", 1, 0, 1, 1}, {"Office", "office", "", 1, 1, 6, 2}};
  Initialize();
}

ProviderWorld::~ProviderWorld() {
  provider_.reset();
  services_.reset();
  Require(LiveFakes() == 0, "the provider keeps no object");
  Require(native::LiveAllocations() == textsBefore_, "the provider keeps no text or array");
}

void ProviderWorld::AddPlatformAdapter(const char* deviceId, std::uint8_t lastMacByte) {
  auto object = ComPtr<FakeObject>::Adopt(new FakeObject(script_));
  object->values["DeviceID"] = Variant::AnsiText(deviceId);
  object->values["PNPDeviceID"] = Variant::AnsiText("PCI\\VEN_7F3C&DEV_4220");
  object->values["MACAddress"] =
      Variant::AnsiText(std::string_view(adapterapi::MacText(Adapter(lastMacByte).macAddress)));
  object->values["Caption"] = Variant::AnsiText("Caption");
  object->values["Description"] = Variant::AnsiText("Description");
  services_->platformObjects["Win32_NetworkAdapter"].push_back(
      ComPtr<IWbemClassObject>(object.get()));
}

void ProviderWorld::Initialize() {
  const HRESULT answer =
      provider_->Initialize(nullptr, 0, nullptr, nullptr, services_.get(), nullptr, nullptr);
  Require(answer == WBEM_S_NO_ERROR, "Initialize always succeeds");
  Require(ImpersonationDepth() == 0, "every impersonation is reverted");
  journal_.Clear();
}

adapterapi::ApiStatus ProviderWorld::Status() {
  const auto kind = source_.Take<std::uint8_t>();
  if (kind == 255) throw std::runtime_error("library");
  return kind < 240 ? 0 : source_.Take<std::int32_t>();
}

template <class Value>
void ProviderWorld::Give(Value* value) {
  source_.Record(value, sizeof(*value));
}

// The count may be too small but never too large: the memory after the list belongs to others.
template <class List, class Entry, class Count>
void ProviderWorld::GiveList(const List** list) {
  const unsigned entries = source_.Below(5);
  if (entries == 4) return;
  std::vector<std::uint8_t>& bytes = lists_.emplace_back(sizeof(Count) + entries * sizeof(Entry));
  source_.Record(bytes.data(), bytes.size());
  Count count;
  std::memcpy(&count, bytes.data(), sizeof(count));
  if (static_cast<Count>(entries) < count) count = static_cast<Count>(entries);
  std::memcpy(bytes.data(), &count, sizeof(count));
  *list = reinterpret_cast<const List*>(bytes.data());
}
template <class Entry>
void ProviderWorld::Give(const adapterapi::LibraryList<Entry>** list) {
  GiveList<adapterapi::LibraryList<Entry>, Entry, std::int32_t>(list);
}
void ProviderWorld::Give(const adapterapi::AdapterList** list) {
  GiveList<adapterapi::AdapterList, AdapterListRecord, std::uint32_t>(list);
}

void ProviderWorld::LibrariesFromInput() {
#define QUARN_OPERATION(ordinal, name, parameters, arguments) \
  api_.on##name = [this](auto... values) {                    \
    const adapterapi::ApiStatus status = Status();            \
    if (status == 0) (Give(values), ...);                     \
    return status;                                            \
  };
#include "adapterapi/operations.inc"
#undef QUARN_OPERATION
  profiles_.onGetProfileToApply = [this](ORVEL_WLAN_PROFILE& profile) -> LONG {
    Give(&profile);
    return static_cast<LONG>(source_.Take<std::int8_t>());
  };
  texts_.resize(12);
  for (std::string& text : texts_) text = source_.Bytes();
  profiles_.stores.clear();
  for (unsigned store = 0; store < 4; ++store) {
    const std::string* texts = &texts_[store * 3];
    profiles_.stores[1u << store] = {{texts[0].c_str(), texts[1].c_str(), texts[2].c_str(),
                                      source_.Take<int>(), source_.Take<int>(), source_.Take<int>(),
                                      source_.Take<int>()}};
  }
  for (unsigned load = source_.Below(8); load > 0; --load) {
    profiles_.loadStatuses[static_cast<int>(source_.Below(16))] = source_.Take<LONG>();
  }
}

void ProviderWorld::CheckRequest(HRESULT answer, const FakeSink& sink) {
  Require(sink.statuses.size() == 1, "a request has one status");
  Require(sink.statuses[0] == answer, "the answer is the status");
  Require(sink.references() == 1, "the sink is not kept");
  Require(ImpersonationDepth() == 0, "every impersonation is reverted");
}

void ProviderWorld::Enumerate(const platform::OleString& className) {
  const Bstr name(className.c_str());
  Request([&](IWbemServices& services, IWbemObjectSink* sink) {
    return services.CreateInstanceEnumAsync(name.get(), 0, nullptr, sink);
  });
}

void ProviderWorld::Get(const platform::OleString& path) {
  const Bstr text(path.c_str());
  Request([&](IWbemServices& services, IWbemObjectSink* sink) {
    return services.GetObjectAsync(text.get(), 0, nullptr, sink);
  });
}

void ProviderWorld::Put(const std::string& className) {
  const auto object = ComPtr<ClientObject>::Adopt(new ClientObject(source_, className));
  Request([&](IWbemServices& services, IWbemObjectSink* sink) {
    return services.PutInstanceAsync(object.get(), 0, nullptr, sink);
  });
  Require(object->references() == 1, "the instance is not kept");
}

void ProviderWorld::Method(const platform::OleString& path, const platform::OleString& name) {
  const Bstr pathText(path.c_str());
  const Bstr method(name.c_str());
  const auto in = ComPtr<ClientObject>::Adopt(new ClientObject(source_, "in"));
  Request([&](IWbemServices& services, IWbemObjectSink* sink) {
    return services.ExecMethodAsync(pathText.get(), method.get(), 0, nullptr, in.get(), sink);
  });
  Require(in->references() == 1, "the in-parameters are not kept");
}
