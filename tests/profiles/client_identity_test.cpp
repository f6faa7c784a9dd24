// The identity under which the profile library works; only the native layer shows it.

#include "platform/native/observe.h"
#include "profiles/preferred_profiles.h"
#include "profiles/user_profile_trace.h"
#include "provider/core/impersonation.h"
#include "tests/profiles/profile_settings.h"
#include "tests/support/fake_profile_library.h"
#include "tests/support/provider_fixture.h"

namespace wifi {
namespace {

using Strings = std::vector<std::string>;

class ClientIdentity : public testing_support::StateFixture {
 protected:
  static int Depth() {
    const native::ImpersonationCounts counts = native::ImpersonationCountsOfThread();
    return counts.impersonated - counts.reverted;
  }
  testing_support::ProfileSettings settings;
  testing_support::FakeProfileLibrary library{journal};
};

TEST_F(ClientIdentity, AListingAsksAsTheClient) {
  const int before = Depth();
  int asking = 0;
  api.onGetSettingValue = [&](auto, auto*) {
    asking = Depth() - before;
    return 0;
  };
  EnumeratePreferredProfiles(state, delivery());
  EXPECT_EQ(asking, 1);
  GetPreferredProfile(state, delivery(), ParsedPath());
  EXPECT_EQ(asking, 0);
  library.throwsAt = "Open(3000)";
  EXPECT_THROW(EnumeratePreferredProfiles(state, delivery()), std::runtime_error);
  EXPECT_EQ(Depth(), before);
}

TEST_F(ClientIdentity, TheLibrarysObjectsGoAsTheServiceItself) {
  const int before = Depth();
  std::map<std::string, int> depths;
  library.onCall = [&](const std::string& call) { depths[call] = Depth() - before; };
  EnumeratePreferredProfiles(state, delivery());
  for (const char* call : {"new profile", "new manager", "Open(3000)", "Close()"}) {
    EXPECT_EQ(depths.at(call), 1) << call;
  }
  EXPECT_EQ(depths.at("end manager"), 0);
  EXPECT_EQ(depths.at("end profile"), 0);
}

TEST_F(ClientIdentity, TheClientsProfileDirectoryIsTraced) {
  EXPECT_EQ(TraceUserProfileDirectory(), 0);
  EXPECT_EQ(journal.traces(), Strings{"Unable to read thread token\n"});
  journal.Clear();
  const ClientImpersonation client;
  EXPECT_EQ(TraceUserProfileDirectory(), 0);
  const Strings lines = journal.traces();
  ASSERT_EQ(lines.size(), 3u);
  EXPECT_EQ(lines[0], "New");
  EXPECT_EQ(lines[1], "Open Yes\n");
  EXPECT_FALSE(lines[2].empty());

  journal.Clear();
  native::RefuseProcessTokens(true);
  TraceUserProfileDirectory();
  native::RefuseProcessTokens(false);
  EXPECT_EQ(journal.traces(), (Strings{"New", "Open No\n", ""}));
}

}  // namespace
}  // namespace wifi
