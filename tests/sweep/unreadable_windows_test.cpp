// Lists of the libraries that end at every byte at a page which cannot be read, and texts at
// invalid addresses: what can be read is delivered, and the next request is served.

#include <cstring>

#include "platform/control/import_slot_windows.h"
#include "platform/registry_key.h"
#include "provider/server/class_factory.h"
#include "tests/support/fake_profile_library.h"
#include "tests/support/last_bytes.h"
#include "tests/support/provider_fixture.h"
#include "tests/sweep/swept_module.h"

namespace sweep {
namespace {

using namespace adapterapi;
using namespace testing_support;
using platform::Bstr;
using platform::ComPtr;

class UnreadableMemory : public ProviderFixture {
 protected:
  UnreadableMemory() {
    currentLibrary = &api;
    Initialize({{7, "7", 1}, {10, "10", 2}});
    Module().getClassObject(wifi::kInstanceProviderClass, IID_IClassFactory, factory.put_void());
    factory->CreateInstance(nullptr, IID_IWbemProviderInit, init.put_void());
    init->QueryInterface(IID_IWbemServices, served.put_void());
    InitializeOnly(*init.get());
  }
  /// The result of an enumeration of the class, and its number of instances.
  std::pair<HRESULT, std::size_t> Enumerate(const OLECHAR* className) {
    const ComPtr<FakeSink> client = MakeSink(script);
    const Bstr name(className);
    const HRESULT answer = served->CreateInstanceEnumAsync(name.get(), 0, nullptr, client.get());
    EXPECT_EQ(client->statuses, std::vector<HRESULT>{answer});
    return {answer, client->objects.size()};
  }
  /// Lists of two entries whose count is a hundred, ending after each of their bytes.
  template <class Entry, class Getter>
  void CutEverywhere(Getter& getter, const OLECHAR* className) {
    std::vector<char> bytes(sizeof(std::int32_t) + 2 * sizeof(Entry));
    const std::int32_t count = 100;
    std::memcpy(bytes.data(), &count, sizeof(count));
    for (std::size_t readable = 0; readable <= bytes.size(); ++readable) {
      const LastBytes list(bytes.data(), readable);
      getter = [&](auto, auto** given) {
        *given = static_cast<const LibraryList<Entry>*>(list.get());
        return 0;
      };
      const std::size_t whole = readable < 4 ? 0 : (readable - 4) / sizeof(Entry);
      EXPECT_EQ(Enumerate(className), std::pair(WBEM_E_NOT_FOUND, whole)) << readable;
      ++cuts;
    }
    EXPECT_EQ(Enumerate(OLESTR("WiFi_NetworkAdapterConfiguration")), std::pair(S_OK, size_t{2}));
  }

  FakeProfileLibrary profiles{journal};
  ComPtr<IClassFactory> factory;
  ComPtr<IWbemProviderInit> init;
  ComPtr<IWbemServices> served;
  int cuts = 0;
};

TEST_F(UnreadableMemory, ListsCutAtEveryByte) {
  CutEverywhere<ScanListEntry>(api.onGetCachedScanList, OLESTR("WiFi_AdapterCachedScanList"));
  CutEverywhere<ScanListEntry>(api.onGetAvailableNetworks, OLESTR("WiFi_AvailableNetwork"));
  CutEverywhere<ExcludeEntryRecord>(api.onGetExcludeList, OLESTR("WiFi_NetworkExcludeList"));
  const std::uint32_t count = 9;
  std::memcpy(adapterList.data(), &count, sizeof(count));
  for (std::size_t readable = 0; readable <= adapterList.size(); readable += 4) {
    const LastBytes table(adapterList.data(), readable);
    api.onGetAdapterList = [&](const AdapterList** list) {
      *list = static_cast<const AdapterList*>(table.get());
      return 0;
    };
    initStatuses.clear();
    InitializeOnly(*init.get());
    EXPECT_EQ(initStatuses, std::vector<LONG>{WBEM_E_FAILED}) << readable;
    const std::size_t whole = readable < 4 ? 0 : (readable - 4) / sizeof(AdapterListRecord);
    EXPECT_EQ(Enumerate(OLESTR("WiFi_NetworkAdapterConfiguration")), std::pair(S_OK, whole));
    ++cuts;
  }
  std::cout << cuts << " cuts tried" << std::endl;
}

TEST_F(UnreadableMemory, TextsThatAreNowhere) {
  const char* nowhere = reinterpret_cast<const char*>(16);
  for (const FakeProfile& profile :
       {FakeProfile{nowhere, "", ""}, FakeProfile{"", nowhere, ""}, FakeProfile{"", "", nowhere}}) {
    profiles.stores[1] = {profile};
    EXPECT_EQ(Enumerate(OLESTR("WiFi_PreferredProfile")),
              std::pair(static_cast<HRESULT>(WBEM_E_PROVIDER_FAILURE), std::size_t{0}));
    EXPECT_EQ(ImpersonationDepth(), 0);
  }
}

// A client's addresses are as untrusted as a library's.
TEST_F(UnreadableMemory, ArgumentsThatAreNowhere) {
  void** const nowhere = reinterpret_cast<void**>(16);
  EXPECT_EQ(Module().getClassObject(wifi::kInstanceProviderClass, IID_IClassFactory, nowhere),
            E_UNEXPECTED);
  EXPECT_EQ(factory->QueryInterface(IID_IUnknown, nowhere), E_UNEXPECTED);
  EXPECT_EQ(factory->CreateInstance(nullptr, IID_IUnknown, nowhere), E_UNEXPECTED);
  EXPECT_EQ(init->QueryInterface(IID_IUnknown, nowhere), E_UNEXPECTED);
  const ComPtr<FakeSink> client = MakeSink(script);
  const auto name = reinterpret_cast<BSTR>(nowhere);
  EXPECT_EQ(served->CreateInstanceEnumAsync(name, 0, nullptr, client.get()),
            static_cast<HRESULT>(WBEM_E_PROVIDER_FAILURE));
}

HRESULT WINAPI RefuseTypeLibrary(LPCOLESTR, REGKIND, ITypeLib** library) {
  *library = nullptr;
  return TYPE_E_CANTLOADLIBRARY;
}

// By then the keys have been written.
TEST(ModuleRegistration, GoesBackWhereTheTypeLibraryIsRefused) {
  ULONGLONG* slot = platform::ImportSlot(Module().handle, "oleaut32.dll", "LoadTypeLibEx");
  ASSERT_NE(slot, nullptr);
  const ULONGLONG before = *slot;
  platform::RegistryKey key;
  constexpr const char* kKey = "CLSID\\{3B14BAD6-C364-4576-8271-39B5850ABDA8}";
  ASSERT_NE(key.Open(HKEY_CLASSES_ROOT, kKey, KEY_READ), LSTATUS{0});
  platform::ReplaceImport(Module().handle, "oleaut32.dll", "LoadTypeLibEx", &RefuseTypeLibrary);
  EXPECT_EQ(Module().registerServer(), TYPE_E_CANTLOADLIBRARY);
  platform::ReplaceImport(Module().handle, "oleaut32.dll", "LoadTypeLibEx",
                          reinterpret_cast<void*>(before));
  EXPECT_NE(key.Open(HKEY_CLASSES_ROOT, kKey, KEY_READ), LSTATUS{0});
  Module().unregisterServer();
}

}  // namespace
}  // namespace sweep
