#include "provider/registration/registrar.h"

#include "tests/support/registry_content.h"

namespace wifi {
namespace {

using platform::OleString;
using platform::RegistryKey;

constexpr const char* kScript = R"(HKCR
{
  Plain = s 'Text with {braces} and = signs'
  {
    Child = s '%MODULE%'
  }
  NoRemove Shared
  {
    ForceRemove {1234} = s 'Own'
    {
      Server = s 'before %MODULE% after'
      {
        val Model = s 'apartment'
      }
      Empty~1
    }
  }
})";

/// A separate key below HKEY_CURRENT_USER, deleted with the test.
class Registration : public ::testing::Test {
 protected:
  void SetUp() override {
    RegDeleteTreeW(HKEY_CURRENT_USER, testKey_.c_str());
    ASSERT_EQ(root.Create(HKEY_CURRENT_USER, testKey_), LSTATUS{0});
  }
  void TearDown() override { RegDeleteTreeW(HKEY_CURRENT_USER, testKey_.c_str()); }

  testing_support::RegistryContent Content() { return testing_support::ContentOf(root.get()); }
  void MakeKey(const OleString& name) {
    RegistryKey key;
    ASSERT_EQ(key.Create(root.get(), name), LSTATUS{0});
  }

  RegistryKey root;

 private:
  const OleString testKey_ = OLESTR("Software\\RegistrationTest");
};

const testing_support::RegistryContent kWritten = {
    {"\\Plain", "Text with {braces} and = signs"},
    {"\\Plain\\Child", "C:\\It's here\\module.dll"},
    {"\\Shared", ""},
    {"\\Shared\\{1234}", "Own"},
    {"\\Shared\\{1234}\\Empty~1", ""},
    {"\\Shared\\{1234}\\Server", "before C:\\It's here\\module.dll after"},
    {"\\Shared\\{1234}\\Server@Model", "apartment"},
};

const OleString kModule = OLESTR("C:\\It's here\\module.dll");

TEST_F(Registration, WritesExactlyTheScriptAndTakesItBack) {
  const auto script = ParseRegistrationScript(kScript, kModule);
  for (int round = 0; round < 2; ++round) {
    EXPECT_EQ(ApplyRegistration(root.get(), script), S_OK);
    EXPECT_EQ(Content(), kWritten);
  }
  for (int round = 0; round < 2; ++round) {
    EXPECT_EQ(RemoveRegistration(root.get(), script), S_OK);
    EXPECT_EQ(Content(), (testing_support::RegistryContent{{"\\Shared", ""}}));
  }
}

TEST_F(Registration, KeepsWhatIsNotItsOwn) {
  const auto script = ParseRegistrationScript(kScript, kModule);
  MakeKey(OLESTR("Shared\\Other"));
  MakeKey(OLESTR("Shared\\{1234}\\Stale\\Deep"));
  EXPECT_EQ(ApplyRegistration(root.get(), script), S_OK);
  EXPECT_EQ(Content().count("\\Shared\\{1234}\\Stale"), 0u);  // ForceRemove
  MakeKey(OLESTR("Plain\\Foreign"));
  MakeKey(OLESTR("Shared\\{1234}\\Later"));
  EXPECT_EQ(RemoveRegistration(root.get(), script), S_OK);
  const auto left = Content();
  EXPECT_EQ(left.count("\\Shared\\Other"), 1u);
  EXPECT_EQ(left.count("\\Plain\\Foreign"), 1u);
  EXPECT_EQ(left.count("\\Plain\\Child"), 0u);
  EXPECT_EQ(left.count("\\Shared\\{1234}"), 0u);
}

TEST_F(Registration, LeavesNothingBehindAfterAFailureHalfWay) {
  auto script = ParseRegistrationScript(kScript, kModule);
  script.back().keys.front().keys.back().name =
      OleString(300, OLECHAR('k'));  // longer than a key's name can be
  EXPECT_TRUE(FAILED(ApplyRegistration(root.get(), script)));
  EXPECT_EQ(Content(), (testing_support::RegistryContent{{"\\Shared", ""}}));
}

TEST(RegistrationScript, SaysWhereItIsWrong) {
  const struct {
    const char* text;
    const char* message;
  } rows[] = {
      {"", "line 1: expected HKCR, found ''"},
      {"HKLM { }", "line 1: expected HKCR, found 'HKLM'"},
      {"HKCR\n{\n  Key = 'x'\n}", "line 3: expected s, found 'x'"},
      {"HKCR {\n Key = s x }", "line 2: expected a quoted text, found 'x'"},
      {"HKCR {\n Key = s 'open }", "line 2: expected a closing quote, found ''open }'"},
      {"HKCR {\n Key {\n", "line 3: expected a name, found ''"},
      {"HKCR { 'Key' }", "line 1: expected a name, found 'Key'"},
      {"HKCR { NoRemove { } }", "line 1: expected a name, found '{'"},
      {"HKCR { NoRemove } }", "line 1: expected a name, found '}'"},
      {"HKCR { = s 'x' }", "line 1: expected a name, found '='"},
      {"HKCR { val V = s 'x' }", "line 1: expected no value beside the keys, found ''"},
      {"HKCR { } more", "line 1: expected the end, found 'more'"},
  };
  for (const auto& row : rows) {
    try {
      ParseRegistrationScript(row.text, {});
      ADD_FAILURE() << "accepted: " << row.text;
    } catch (const ScriptError& error) {
      EXPECT_EQ(std::string("registration script, ") + row.message, error.what());
    }
  }
}

}  // namespace
}  // namespace wifi
