// The module's entry point and its registration, with a fake library.

#include "platform/native/observe.h"
#include "tests/support/provider_fixture.h"
#include "tests/support/registry_content.h"
#include "tests/sweep/swept_module.h"

extern "C" BOOL WINAPI DllMain(HINSTANCE module, DWORD reason, LPVOID reserved);

namespace sweep {
namespace {

using ModuleEntry = testing_support::StateFixture;
using Strings = std::vector<std::string>;

TEST_F(ModuleEntry, SetsTheLibrarysModeAtItsStartAndAsksNothingElse) {
  currentLibrary = &api;
  std::vector<std::uint32_t> modes;
  api.onSetLibraryMode = [&](std::uint32_t mode) {
    modes.push_back(mode);
    return 5;  // a failing library does not prevent loading
  };
  EXPECT_TRUE(DllMain(nullptr, DLL_PROCESS_ATTACH, nullptr));
  EXPECT_EQ(journal.calls(), Strings{"SetLibraryMode"});
  EXPECT_EQ(modes, std::vector<std::uint32_t>{1});
  EXPECT_TRUE(DllMain(nullptr, DLL_PROCESS_DETACH, nullptr));
  EXPECT_EQ(journal.calls().size(), 1u);
  api.onSetLibraryMode = testing_support::Raises();
  EXPECT_TRUE(DllMain(nullptr, DLL_PROCESS_ATTACH, nullptr));
}

// Out of memory at any point, the module is registered completely or not at all.
TEST(ModuleRegistration, IsWholeOrNotThereAtAll) {
  using testing_support::FaultPlan;
  native::ClearRegistry();
  ASSERT_EQ(Module().registerServer(), S_OK);
  const auto whole = testing_support::ContentOf(HKEY_CLASSES_ROOT);
  ASSERT_EQ(Module().unregisterServer(), S_OK);
  const auto none = testing_support::ContentOf(HKEY_CLASSES_ROOT);
  ASSERT_GT(whole.size(), none.size() + 5);
  int points = 0;
  for (const bool registers : {true, false}) {
    for (int nth = 1;; ++nth) {
      registers ? Module().unregisterServer() : Module().registerServer();
      FaultPlan plan{testing_support::Step::kHeap, testing_support::Manner::kCode, nth, false};
      FaultPlan::armed = &plan;
      const testing_support::Side inside(true);
      const HRESULT result = registers ? Module().registerServer() : Module().unregisterServer();
      const testing_support::Side outside(false);
      FaultPlan::armed = nullptr;
      if (plan.struck == 0) break;
      ++points;
      SCOPED_TRACE((registers ? "registering, allocation " : "unregistering, allocation ") +
                   std::to_string(nth));
      // A removal continues after a key that it cannot remove, and can be repeated.
      if (FAILED(result) && !registers) {
        const auto left = testing_support::ContentOf(HKEY_CLASSES_ROOT);
        std::size_t keys = 0;
        for (const char* key :
             {"\\CLSID\\{3B14BAD6-C364-4576-8271-39B5850ABDA8}", "\\WiFiAdapterProvider.Instance",
              "\\WiFiAdapterProvider.Instance.1"}) {
          keys += left.count(key);
        }
        EXPECT_TRUE(left == whole || keys <= 1);
        EXPECT_EQ(Module().unregisterServer(), S_OK);
      }
      EXPECT_EQ(testing_support::ContentOf(HKEY_CLASSES_ROOT),
                SUCCEEDED(result) && registers ? whole : none);
    }
  }
  std::cout << points << " failure points tried in the registration" << std::endl;
  EXPECT_GT(points, 50);
  native::ClearRegistry();
}

}  // namespace
}  // namespace sweep
