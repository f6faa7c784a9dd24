#include "provider/core/object_path.h"

#include <gtest/gtest.h>

#include "platform/text.h"
#include "provider/core/instance.h"
#include "tests/support/fake_wbem.h"
#include "tests/support/path_text.h"

namespace wifi {
namespace {

using platform::Utf8Text;
using platform::Variant;
using testing_support::PathText;
using testing_support::Shown;

struct Row {
  const char* text;
  PathFlag flag;
  PathResult result;
  const char* written;  ///< the written form of the parsed path
};

constexpr auto kRelative = PathFlag::kRelativeNamespace;
constexpr auto kAbsolute = PathFlag::kAbsoluteNamespace;
constexpr auto kAny = PathFlag::kEverything;
constexpr auto kParsed = PathResult::kParsed;
constexpr auto kSyntax = PathResult::kSyntaxError;
constexpr auto kInvalid = PathResult::kInvalidArgument;

const Row kRows[] = {
    {"WiFi_X", kAbsolute, kParsed, "WiFi_X"},
    {"WiFi_X=@", kAbsolute, kParsed, "WiFi_X=@"},
    {R"(WiFi_X.DeviceID="7")", kAbsolute, kParsed, R"(WiFi_X.DeviceID="7")"},
    {R"(WiFi_X.DeviceID='7')", kAbsolute, kParsed, R"(WiFi_X.DeviceID="7")"},
    {R"(WiFi_X . DeviceID = "7" , B = 1)", kAbsolute, kParsed, R"(WiFi_X.B=1,DeviceID="7")"},
    {R"(\\.\root\cimv2:WiFi_X.K="a\"b\\c")", kAbsolute, kParsed,
     R"(\\.\root\cimv2:WiFi_X.K="a\"b\\c")"},
    {R"(//HOST/root/cimv2:WiFi_X.K=12)", kAbsolute, kParsed, R"(\\HOST\root\cimv2:WiFi_X.K=12)"},
    {R"(\\HOST\root)", kAbsolute, kParsed, R"(\\HOST\root)"},
    // Keys come back sorted; names that differ only in letter case keep their order.
    {R"(C.SettingID="s",AdapterID="a")", kAbsolute, kParsed, R"(C.AdapterID="a",SettingID="s")"},
    {R"(C.b=1,A=2,B=3,a=4)", kAbsolute, kParsed, R"(C.A=2,a=4,b=1,B=3)"},
    {"C.z=1,Z=2,a=3", kAbsolute, kParsed, "C.a=3,z=1,Z=2"},
    {"C.k=1,K=2,k=3,K=4,k=5,K=6,k=7,K=8,k=9,K=10,k=11,K=12,k=13,K=14,k=15,K=16,k=17,K=18",
     kAbsolute, kParsed,
     "C.k=1,K=2,k=3,K=4,k=5,K=6,k=7,K=8,k=9,K=10,k=11,K=12,k=13,K=14,k=15,K=16,k=17,K=18"},
    // One value without a name.
    {R"(C="v")", kAbsolute, kParsed, R"(C="v")"},
    {R"(C."v")", kAbsolute, kParsed, R"(C="v")"},
    // Numbers and booleans.
    {"C.K=-12", kAbsolute, kParsed, "C.K=-12"},
    {"C.K=+0", kAbsolute, kParsed, "C.K=0"},
    {R"(C.K='it\'s')", kAbsolute, kParsed, R"(C.K="it's")"},
    {"C.K=0x1F", kAbsolute, kParsed, "C.K=31"},
    {"C.K=0xFFFFFFFF", kAbsolute, kParsed, "C.K=-1"},
    {"C.K=4294967296", kAbsolute, kParsed, "C.K=2147483647"},
    {"C.K=TRUE", kAbsolute, kParsed, "C.K=1"},
    {"C.K=True,L=false", kAbsolute, kParsed, "C.K=1,L=0"},
    {"C.K=1234567890123456789012345678901", kAbsolute, kParsed, "C.K=2147483647"},
    {"C.K=12345678901234567890123456789012", kAbsolute, kSyntax, ""},
    {"C.K=0x123456789012345678901234567890", kAbsolute, kSyntax, ""},
    // A namespace needs its server, unless the parser says otherwise.
    {"root\\cimv2:C", kAbsolute, kSyntax, ""},
    {"root\\cimv2:C", kRelative, kParsed, "\\\\.\\root\\cimv2:C"},
    {"root:C", kAny, kParsed, "\\\\.\\root:C"},
    {"\\root\\cimv2:C", kAny, kParsed, "\\\\.\\root\\cimv2:C"},
    {"\\\\HOST", kAbsolute, kSyntax, ""},
    {"\\\\HOST", kRelative, kSyntax, ""},
    {"\\\\HOST", kAny, kParsed, "\\\\HOST"},
    {"\\\\\\root:C", kAny, kSyntax, ""},
    // Texts that are no path.
    {"", kAbsolute, kInvalid, ""},
    {"C.K=1 ", kAbsolute, kInvalid, ""},
    {"\tC", kAbsolute, kInvalid, ""},
    {"C\r", kAbsolute, kInvalid, ""},
    {"C.", kAbsolute, kSyntax, ""},
    {"C.K", kAbsolute, kSyntax, ""},
    {"C.K=", kAbsolute, kSyntax, ""},
    {"C.K=1,", kAbsolute, kSyntax, ""},
    {"C.K=1 L=2", kAbsolute, kSyntax, ""},
    {"C.K=word", kAbsolute, kSyntax, ""},
    {"C.K=1.5", kAbsolute, kSyntax, ""},
    {"C.K=12ab", kAbsolute, kSyntax, ""},
    {"C.K=0x", kAbsolute, kSyntax, ""},
    {R"(C.K="open)", kAbsolute, kSyntax, ""},
    {R"(C.K="bad\escape")", kAbsolute, kSyntax, ""},
    {R"(C.K="ends\)", kAbsolute, kSyntax, ""},
    {"C=@x", kAbsolute, kSyntax, ""},
    {"C C", kAbsolute, kSyntax, ""},
    {"\\\\HOST\\", kAbsolute, kSyntax, ""},
    {"\\\\HOST\\root:", kAbsolute, kSyntax, ""},
    {"?", kAbsolute, kSyntax, ""},
    {"C{", kAbsolute, kSyntax, ""},
    {"C`", kAbsolute, kSyntax, ""},
    {"\\root C", kAny, kSyntax, ""},
    {"root\\:C", kAny, kSyntax, ""},
    {"root\\cimv2 C", kAny, kSyntax, ""},
    {"C=1 2", kAbsolute, kSyntax, ""},
    {"C.1 2", kAbsolute, kSyntax, ""},
    {"C.K=0x1G", kAbsolute, kSyntax, ""},
    {"C.K=0x1_", kAbsolute, kSyntax, ""},
    {"C.K=1x1", kAbsolute, kSyntax, ""},
    {"C\b", kAbsolute, kSyntax, ""},  // not a blank
    {"C\x1F", kAbsolute, kSyntax, ""},
    {"C.K=0x1-", kAbsolute, kSyntax, ""},
    {"C.K=-", kAbsolute, kSyntax, ""},
};

TEST(ObjectPath, IsReadAndWrittenBack) {
  for (const Row& row : kRows) {
    std::unique_ptr<ParsedPath> path;
    const PathResult result =
        PathParser(row.flag).Parse(platform::WideFromUtf8(row.text).c_str(), &path);
    EXPECT_EQ(result, row.result) << row.text;
    EXPECT_EQ(path != nullptr, row.result == kParsed) << row.text;
    if (path) {
      EXPECT_EQ(Utf8Text(PathText(*path)), row.written) << row.text;
    }
  }
}

TEST(ObjectPath, RefusesMissingArguments) {
  std::unique_ptr<ParsedPath> path;
  EXPECT_EQ(PathParser(kAbsolute).Parse(nullptr, &path), kInvalid);
  EXPECT_EQ(PathParser(kAbsolute).Parse(OLESTR("C"), nullptr), kInvalid);
}

TEST(ObjectPath, WritesKeysByTheirType) {
  ParsedPath path;
  path.className = OLESTR("C");
  VARIANT value;
  VariantInit(&value);
  value.vt = VT_UI4;
  value.ulVal = 0xFFFFFFFF;
  path.AddKey(OLESTR("A"), value);
  value.vt = VT_I2;
  value.iVal = -2;
  path.AddKey(OLESTR("B"), value);
  value.vt = VT_UI2;
  value.uiVal = 65535;
  path.AddKey(OLESTR("C"), value);
  path.AddKey(OLESTR("D"), Variant::AnsiText("x\"").get());
  path.AddKey(OLESTR("E"), Variant::Boolean(true).get());  // not a type of a key
  EXPECT_EQ(Utf8Text(PathText(path)), R"(C.A=4294967295,B=-2,C=65535,D="x\"",E=)");
}

TEST(ObjectPath, GivesKeysByExactName) {
  ParsedPath path;
  path.AddKey(OLESTR("DeviceID"), Variant::AnsiText("7").get());
  path.AddKey(OLESTR("DeviceID"), Variant::AnsiText("8").get());
  path.AddKey(nullptr, Variant::Integer(9).get());
  EXPECT_EQ(Shown(GetPathKeyValue(path, OLESTR("DeviceID"))), "text:7");
  EXPECT_EQ(Shown(GetPathKeyValue(path, OLESTR("deviceid"))), "empty");
  EXPECT_EQ(Shown(GetPathKeyValue(path, nullptr)), "number:9");
  EXPECT_EQ(PathKeyText(path, OLESTR("DeviceID")), "7");
  EXPECT_EQ(PathKeyText(path, nullptr), "");
}

}  // namespace
}  // namespace wifi
