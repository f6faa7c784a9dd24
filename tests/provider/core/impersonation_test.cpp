// The identity under which the library is called; only the native layer shows it.

#include "platform/native/observe.h"
#include "tests/support/provider_fixture.h"

namespace wifi {
namespace {

using platform::Bstr;
using testing_support::ProviderFixture;

int Depth() {
  const native::ImpersonationCounts counts = native::ImpersonationCountsOfThread();
  return counts.impersonated - counts.reverted;
}

/// Records the identity under which it receives the status.
class WatchingSink final : public testing_support::FakeUnknown<IWbemObjectSink> {
 public:
  int depth = -1;
  HRESULT STDMETHODCALLTYPE Indicate(LONG, IWbemClassObject**) override { return S_OK; }
  HRESULT STDMETHODCALLTYPE SetStatus(LONG, HRESULT, BSTR, IWbemClassObject*) override {
    depth = Depth();
    return S_OK;
  }
};

TEST_F(ProviderFixture, TheStatusIsToldAsTheClient) {
  const int before = Depth();
  const auto watching = platform::ComPtr<WatchingSink>::Adopt(new WatchingSink);
  provider->CreateInstanceEnumAsync(nullptr, 0, nullptr, watching.get());
  EXPECT_EQ(watching->depth, before + 1);
}

TEST_F(ProviderFixture, TheClientIsImpersonatedDuringEachRequestAndNoLonger) {
  int listing = -1;
  int modeSetting = -1;
  int getting = -1;
  const int before = Depth();
  Initialize({{1, "1", 1}});
  const auto list = api.onGetAdapterList;
  api.onGetAdapterList = [&](const adapterapi::AdapterList** table) {
    listing = Depth() - before;
    return list(table);
  };
  api.onSetLibraryMode = [&](auto) {
    modeSetting = Depth() - before;
    return 0;
  };
  InitializeOnly();
  EXPECT_EQ(listing, 1);
  EXPECT_EQ(modeSetting, 0);
  EXPECT_EQ(Depth(), before);

  const Bstr name(OLESTR("WiFi_NetworkAdapter"));
  api.onGetBand = [&](auto, auto*) {
    getting = Depth() - before;
    return 0;
  };
  provider->CreateInstanceEnumAsync(name.get(), 0, nullptr, sink.get());
  EXPECT_EQ(getting, 1);
  EXPECT_EQ(Depth(), before);

  api.onGetSettingValue = testing_support::Raises();
  provider->CreateInstanceEnumAsync(name.get(), 0, nullptr, sink.get());
  EXPECT_EQ(Depth(), before);

  api.onGetAdapterList = testing_support::Raises();
  InitializeOnly();
  EXPECT_EQ(Depth(), before);
}

}  // namespace
}  // namespace wifi
