// The module's entry point, over a library that is faked.

#include "tests/support/provider_fixture.h"
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
    return 5;  // a library that fails does not keep the module from loading
  };
  EXPECT_TRUE(DllMain(nullptr, DLL_PROCESS_ATTACH, nullptr));
  EXPECT_EQ(journal.calls(), Strings{"SetLibraryMode"});
  EXPECT_EQ(modes, std::vector<std::uint32_t>{1});
  EXPECT_TRUE(DllMain(nullptr, DLL_PROCESS_DETACH, nullptr));
  EXPECT_EQ(journal.calls().size(), 1u);
  api.onSetLibraryMode = testing_support::Raises();
  EXPECT_TRUE(DllMain(nullptr, DLL_PROCESS_ATTACH, nullptr));
}

}  // namespace
}  // namespace sweep
