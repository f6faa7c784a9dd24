#include "provider/server/discovery.h"

#include <cstring>
#include <stdexcept>

#include "tests/support/os_version.h"
#include "tests/support/provider_fixture.h"

namespace wifi {
namespace {

using adapterapi::AdapterListRecord;
using platform::ComPtr;
using platform::Variant;
using testing_support::Answers;
using testing_support::FakeObject;
using testing_support::ProviderFixture;
using testing_support::Raises;
using testing_support::StateFixture;
using Strings = std::vector<std::string>;

AdapterListRecord Record(std::uint32_t number, std::uint8_t lastMacByte,
                         std::uint32_t present = 1) {
  AdapterListRecord record;
  std::memset(&record, 0xEE, sizeof(record));  // bytes that are not read must not matter
  record.number = number;
  const std::uint8_t mac[6] = {0x00, 0xA0, 0xF8, 0x80, 0xFF, lastMacByte};
  std::memcpy(record.macAddress, mac, sizeof(mac));
  record.present = present;
  return record;
}

class Discovery : public ProviderFixture {
 protected:
  /// The keys of the adapters that the provider serves.
  Strings Served() {
    platform::ComPtr<testing_support::FakeSink> answers = testing_support::MakeSink(script);
    const platform::Bstr name(OLESTR("WiFi_NetworkAdapter"));
    EXPECT_EQ(provider->CreateInstanceEnumAsync(name.get(), 0, nullptr, answers.get()), S_OK);
    Strings keys;
    for (const auto& object : answers->objects) keys.push_back(object->Last("DeviceID"));
    return keys;
  }
};

TEST_F(Discovery, ServesTheMakersPciAdaptersThatBothSidesKnow) {
  SetAdapterList({Record(11, 0x01), Record(12, 0x02), Record(13, 0x03, 0), Record(14, 0x04)});
  constexpr const char* kMaker = "PCI\\VEN_7F3C&DEV_4220&SUBSYS_1";
  AddPlatformAdapter("7", kMaker, "00:A0:F8:80:FF:02");
  AddPlatformAdapter("10", kMaker, "00:A0:F8:80:FF:01");
  AddPlatformAdapter("8", kMaker, "00:A0:F8:80:FF:02");  // the same address again
  AddPlatformAdapter("1", kMaker, "00:A0:F8:80:FF:03");  // not present
  AddPlatformAdapter("2", kMaker, "00:A0:F8:80:FF:05");  // unknown to the library
  AddPlatformAdapter("3", kMaker, "00:a0:f8:80:ff:04");  // lower case
  AddPlatformAdapter("4", "PCI\\VEN_8086&DEV_1", "00:A0:F8:80:FF:04");
  AddPlatformAdapter("5", "pci\\ven_7f3c&dev_1", "00:A0:F8:80:FF:04");
  AddPlatformAdapter("11", "USB\\VEN_7F3C&DEV_1", "00:A0:F8:80:FF:04");
  AddPlatformAdapter("11", "PCI\\VEN_7F3C&SUBSYS_1", "00:A0:F8:80:FF:04");
  AddPlatformAdapter("6", "USB\\PCI\\VEN_7F3C&DEVICE", "00:A0:F8:80:FF:04");
  AddPlatformAdapter("6", kMaker, "00:A0:F8:80:FF:01");  // the key is taken
  AddPlatformAdapter(nullptr, kMaker, "00:A0:F8:80:FF:04");
  AddPlatformAdapter("9", nullptr, "00:A0:F8:80:FF:04");
  AddPlatformAdapter("9", kMaker, nullptr);
  fakeNamespace.platformObjects["Win32_NetworkAdapter"].insert(
      fakeNamespace.platformObjects["Win32_NetworkAdapter"].begin() + 1,
      ComPtr<IWbemClassObject>());

  EXPECT_EQ(InitializeOnly(), WBEM_S_NO_ERROR);
  EXPECT_EQ(initStatuses, std::vector<LONG>{0});
  // In the order of their key texts; the vendor prefix may be anywhere in the device id.
  EXPECT_EQ(Served(), (Strings{"text:10", "text:6", "text:7", "text:8"}));
  EXPECT_TRUE(journal.Has("trace Number of Adapter:4"));

  // The first of two adapters with the same key is kept: key 6 has the number of address 04.
  std::vector<std::uint32_t> numbers;
  api.onGetBand = [&](std::uint32_t number, std::uint32_t*) {
    numbers.push_back(number);
    return 0;
  };
  Served();
  EXPECT_EQ(numbers, (std::vector<std::uint32_t>{11, 14, 12, 12}));
}

TEST_F(Discovery, ReportsTheLibrarysRefusalThroughTheInitSinkOnly) {
  Initialize({{1, "7", 1}});
  EXPECT_EQ(Served(), Strings{"text:7"});
  api.onGetAdapterList = Answers(0x4711);
  EXPECT_EQ(InitializeOnly(), WBEM_S_NO_ERROR);
  EXPECT_EQ(initStatuses, (std::vector<LONG>{0, 0x4711}));
  EXPECT_EQ(Served(), Strings{});  // and the earlier adapters are gone
}

TEST_F(Discovery, CallsTheLibraryAsTheClientAndSetsItsModeWhateverItAnswered) {
  api.onGetAdapterList = Answers(5);
  std::vector<std::uint32_t> modes;
  api.onSetLibraryMode = [&](std::uint32_t mode) {
    modes.push_back(mode);
    return 0;
  };
  InitializeOnly();
  EXPECT_EQ(journal.calls(), (Strings{"GetAdapterList", "SetLibraryMode"}));
  EXPECT_EQ(modes, std::vector<std::uint32_t>{1});
}

TEST_F(Discovery, SurvivesExceptionsAndFailuresOfEitherSide) {
  api.onGetAdapterList = Raises();
  EXPECT_EQ(InitializeOnly(), WBEM_S_NO_ERROR);
  SetAdapterList({Record(1, 1)});
  EXPECT_EQ(InitializeOnly(), WBEM_S_NO_ERROR);  // the namespace has no Win32_NetworkAdapter
  EXPECT_EQ(initStatuses, (std::vector<LONG>{WBEM_E_FAILED, WBEM_E_INVALID_CLASS}));
  EXPECT_EQ(provider->Initialize(nullptr, 0, nullptr, nullptr, nullptr, nullptr, nullptr),
            WBEM_S_NO_ERROR);
  EXPECT_EQ(Served(), Strings{});
}

TEST_F(Discovery, StopsAtTheFirstObjectThatCannotBeRead) {
  SetAdapterList({Record(1, 1), Record(2, 2), Record(3, 3)});
  AddPlatformAdapter("1", "PCI\\VEN_7F3C&DEV_1", "00:A0:F8:80:FF:01");
  AddPlatformAdapter("2", "PCI\\VEN_7F3C&DEV_1", "00:A0:F8:80:FF:02");
  AddPlatformAdapter("3", "PCI\\VEN_7F3C&DEV_1", "00:A0:F8:80:FF:03");
  auto& second = fakeNamespace.platformObjects["Win32_NetworkAdapter"][1];
  static_cast<FakeObject*>(second.get())->values.erase("Caption");
  InitializeOnly();
  EXPECT_EQ(initStatuses, std::vector<LONG>{WBEM_E_NOT_FOUND});
  EXPECT_EQ(Served(), Strings{"text:1"});
}

TEST_F(Discovery, ReadsDirectlyExceptOnNt50) {
  InitializeOnly();
  for (const DWORD minor : {1u, 0u}) {
    const testing_support::OsVersionNotNt6 version(minor);
    InitializeOnly();
  }
  EXPECT_EQ(
      fakeNamespace.enumerations,
      (Strings{"Win32_ComputerSystem 1", "Win32_NetworkAdapter 230", "Win32_ComputerSystem 1",
               "Win32_NetworkAdapter 230", "Win32_ComputerSystem 1", "Win32_NetworkAdapter 30"}));
}

TEST_F(Discovery, AMissingTableIsAFailure) {
  Initialize({{1, "7", 1}});
  api.onGetAdapterList = Answers(0);
  InitializeOnly();
  EXPECT_TRUE(journal.Has("trace Number of Adapter:0"));
  EXPECT_EQ(initStatuses, (std::vector<LONG>{0, WBEM_E_FAILED}));
  EXPECT_EQ(Served(), Strings{});
}

TEST_F(Discovery, AnotherInitializeStartsAfresh) {
  Initialize({{1, "7", 1}, {2, "8", 2}});
  fakeNamespace.platformObjects.clear();
  initStatuses.clear();
  Initialize({{3, "9", 3}});
  EXPECT_EQ(initStatuses, std::vector<LONG>{0});
  EXPECT_EQ(Served(), Strings{"text:9"});
}

class InteractiveUser : public StateFixture {
 protected:
  void SetUserName(Variant name) {
    auto system = MakeObject();
    system->values["UserName"] = std::move(name);
    fakeNamespace.platformObjects["Win32_ComputerSystem"] = {
        ComPtr<IWbemClassObject>(system.get())};
  }
};

TEST_F(InteractiveUser, IsSplitAtTheLastBackslashAndKeptEncoded) {
  const struct {
    const char* name;
    const char* domain;
    const char* user;
  } rows[] = {
      {"OFFICE\\ana", "OFFICE", "ana"}, {"ana", "", "ana"}, {"A\\B\\ana", "A\\B", "ana"},
      {"OFFICE\\", "OFFICE", ""},       {"", "", ""},
  };
  for (const auto& row : rows) {
    SetUserName(Variant::AnsiText(row.name));
    DiscoverAdapters(state);
    EXPECT_EQ(state.memory.encodedDomain, EncodeIdentity(row.domain)) << row.name;
    EXPECT_EQ(state.memory.encodedUser, EncodeIdentity(row.user)) << row.name;
  }
  EXPECT_EQ(EncodeIdentity("a\xE9"), "C44C");
}

/// Returns an object together with a code that says there is none.
class DenyingEnumeration final : public testing_support::FakeUnknown<IEnumWbemClassObject> {
 public:
  explicit DenyingEnumeration(ComPtr<FakeObject> object) : object_(std::move(object)) {}
  HRESULT STDMETHODCALLTYPE Next(LONG, ULONG, IWbemClassObject** object, ULONG* returned) override {
    *returned = 0;
    *object = ComPtr<FakeObject>(object_.get()).release();
    return S_OK;
  }
  HRESULT STDMETHODCALLTYPE Reset() override { return E_NOTIMPL; }
  HRESULT STDMETHODCALLTYPE NextAsync(ULONG, IWbemObjectSink*) override { return E_NOTIMPL; }
  HRESULT STDMETHODCALLTYPE Clone(IEnumWbemClassObject**) override { return E_NOTIMPL; }
  HRESULT STDMETHODCALLTYPE Skip(LONG, ULONG) override { return E_NOTIMPL; }

 private:
  ComPtr<FakeObject> object_;
};

class DenyingServices final : public testing_support::UnusedServices {
 public:
  explicit DenyingServices(ComPtr<FakeObject> object) : object_(std::move(object)) {}
  HRESULT STDMETHODCALLTYPE CreateInstanceEnum(const BSTR name, LONG, IWbemContext*,
                                               IEnumWbemClassObject** instances) override {
    if (platform::ViewOf(name) != OLESTR("Win32_ComputerSystem")) return WBEM_E_INVALID_CLASS;
    *instances = new DenyingEnumeration(ComPtr<FakeObject>(object_.get()));
    return S_OK;
  }

 private:
  ComPtr<FakeObject> object_;
};

TEST_F(InteractiveUser, NeedsExactlyOneObject) {
  auto system = MakeObject();
  system->values["UserName"] = Variant::AnsiText("OFFICE\\ana");
  state.services = ComPtr<IWbemServices>::Adopt(new DenyingServices(std::move(system)));
  DiscoverAdapters(state);
  EXPECT_EQ(state.memory.encodedDomain + state.memory.encodedUser, "");
}

TEST_F(InteractiveUser, StaysEmptyWhenItCannotBeRead) {
  SetUserName(Variant::AnsiText("OFFICE\\ana"));
  DiscoverAdapters(state);
  EXPECT_NE(state.memory.encodedDomain + state.memory.encodedUser, "");
  fakeNamespace.platformObjects.clear();
  DiscoverAdapters(state);  // no such class
  EXPECT_EQ(state.memory.encodedDomain + state.memory.encodedUser, "") << "an earlier one stays";
  SetUserName(Variant());  // not a text
  DiscoverAdapters(state);
  fakeNamespace.platformObjects["Win32_ComputerSystem"].clear();
  DiscoverAdapters(state);
  EXPECT_EQ(state.memory.encodedDomain + state.memory.encodedUser, "");
}

}  // namespace
}  // namespace wifi
