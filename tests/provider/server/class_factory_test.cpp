#include "provider/server/class_factory.h"

#include <gtest/gtest.h>

#include "platform/com_ptr.h"
#include "provider/server/module_lock.h"
#include "tests/support/fake_adapter_api.h"

namespace wifi {
namespace {

using platform::ComPtr;
using testing_support::FakeAdapterApi;
using testing_support::Journal;

class ClassFactory : public ::testing::Test {
 protected:
  ComPtr<IClassFactory> Factory() {
    ComPtr<IClassFactory> factory;
    EXPECT_EQ(GetClassFactory(api, kInstanceProviderClass, IID_IClassFactory, factory.put_void()),
              S_OK);
    return factory;
  }
  Journal journal;
  FakeAdapterApi api{journal};
};

TEST_F(ClassFactory, GivesTheOneClassOnly) {
  CLSID other = kInstanceProviderClass;
  other.Data1 ^= 1;
  void* object = this;  // the previous value of a caller's variable
  EXPECT_EQ(GetClassFactory(api, other, IID_IClassFactory, &object), CLASS_E_CLASSNOTAVAILABLE);
  EXPECT_EQ(object, nullptr);
  object = this;
  EXPECT_EQ(GetClassFactory(api, kInstanceProviderClass, IID_IWbemServices, &object),
            E_NOINTERFACE);
  EXPECT_EQ(object, nullptr);
  EXPECT_EQ(GetClassFactory(api, kInstanceProviderClass, IID_IUnknown, nullptr), E_POINTER);
  EXPECT_TRUE(ModuleLock::None());
}

TEST_F(ClassFactory, MakesProvidersWithTheirInterfaces) {
  const ComPtr<IClassFactory> factory = Factory();
  ComPtr<IWbemProviderInit> init;
  ASSERT_EQ(factory->CreateInstance(nullptr, IID_IWbemProviderInit, init.put_void()), S_OK);
  ComPtr<IWbemServices> services;
  ASSERT_EQ(init->QueryInterface(IID_IWbemServices, services.put_void()), S_OK);

  // Both interfaces belong to one object with one identity.
  ComPtr<IUnknown> one;
  ComPtr<IUnknown> other;
  ASSERT_EQ(init->QueryInterface(IID_IUnknown, one.put_void()), S_OK);
  ASSERT_EQ(services->QueryInterface(IID_IUnknown, other.put_void()), S_OK);
  EXPECT_EQ(one.get(), other.get());

  EXPECT_EQ(factory->AddRef(), 2u);
  EXPECT_EQ(factory->Release(), 1u);
  void* place = this;
  EXPECT_EQ(init->QueryInterface(IID_IWbemObjectSink, &place), E_NOINTERFACE);
  EXPECT_EQ(place, nullptr);
  ComPtr<IUnknown> none;
  EXPECT_EQ(init->QueryInterface(IID_IUnknown, nullptr), E_POINTER);
  EXPECT_EQ(factory->QueryInterface(IID_IUnknown, nullptr), E_POINTER);
  EXPECT_EQ(factory->CreateInstance(nullptr, IID_IUnknown, nullptr), E_POINTER);
  // Nothing is constructed for it: destroying a rejected provider would close the library under
  // this one.
  EXPECT_EQ(factory->CreateInstance(nullptr, IID_IClassFactory, none.put_void()), E_NOINTERFACE);
  EXPECT_EQ(journal.calls(), std::vector<std::string>{});
  EXPECT_EQ(factory->CreateInstance(one.get(), IID_IUnknown, none.put_void()),
            CLASS_E_NOAGGREGATION);
  EXPECT_FALSE(none);
}

TEST_F(ClassFactory, KeepsTheModuleLoadedWhileAnythingLives) {
  EXPECT_TRUE(ModuleLock::None());
  ComPtr<IClassFactory> factory = Factory();
  EXPECT_FALSE(ModuleLock::None());
  factory->LockServer(FALSE);  // without a lock before
  EXPECT_FALSE(ModuleLock::None());
  ComPtr<IUnknown> provider;
  ASSERT_EQ(factory->CreateInstance(nullptr, IID_IUnknown, provider.put_void()), S_OK);
  factory->LockServer(TRUE);
  factory->LockServer(TRUE);
  factory->LockServer(FALSE);
  provider.reset();
  EXPECT_FALSE(ModuleLock::None());
  factory->LockServer(FALSE);
  factory.reset();
  EXPECT_TRUE(ModuleLock::None());
}

TEST_F(ClassFactory, ClosesTheLibraryOnceWhenTheProviderGoes) {
  ComPtr<IUnknown> provider;
  ASSERT_EQ(Factory()->CreateInstance(nullptr, IID_IUnknown, provider.put_void()), S_OK);
  EXPECT_EQ(journal.events(), std::vector<std::string>{});
  provider.reset();
  EXPECT_EQ(journal.events(), std::vector<std::string>{"call CloseLibrary"});

  api.onCloseLibrary = testing_support::Raises();
  ASSERT_EQ(Factory()->CreateInstance(nullptr, IID_IUnknown, provider.put_void()), S_OK);
  provider.reset();
  EXPECT_TRUE(ModuleLock::None());
}

}  // namespace
}  // namespace wifi
