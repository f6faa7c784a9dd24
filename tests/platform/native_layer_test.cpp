#include <gtest/gtest.h>

#include <filesystem>
#include <fstream>
#include <string>
#include <string_view>
#include <thread>
#include <utility>

#include "platform/environment.h"
#include "platform/native/observe.h"
#include "platform/safe_array.h"
#include "platform/variant.h"

namespace {

using platform::SafeArray;
using platform::Variant;

TEST(NativeAllocation, FailsAtEveryPointAndLosesNothing) {
  const int before = native::LiveAllocations();
  SAFEARRAYBOUND bound = {2, 0};
  bool failed = true;
  int points = 0;
  for (int nth = 1; failed; ++nth) {
    native::FailAllocation(nth);
    const Variant text = Variant::AnsiText("text");
    failed = text.type() == VT_ERROR;
    if (failed) {
      EXPECT_EQ(E_OUTOFMEMORY, text.get().scode);
    }
    SafeArray array(SafeArrayCreate(VT_BSTR, 1, &bound));
    failed = failed || !array;
    LONG index = 1;
    if (array && text.text() != nullptr) {
      failed = FAILED(SafeArrayPutElement(array.get(), &index, text.text())) || failed;
    }
    if (array) {
      const Variant holder = Variant::Array(std::move(array), VT_BSTR);
      const Variant copy = Variant::CopyOf(holder.get());
      if (copy.type() == VT_ERROR) {
        EXPECT_EQ(E_OUTOFMEMORY, copy.get().scode);
      }
      failed = failed || copy.type() == VT_ERROR;
    }
    Variant number = Variant::Integer(5);
    const HRESULT changed = number.ChangeType(VT_BSTR);
    if (FAILED(changed)) {
      EXPECT_EQ(E_OUTOFMEMORY, changed);
      EXPECT_EQ(5, number.get().lVal);
      failed = true;
    }
    points += failed ? 1 : 0;
  }
  native::FailAllocation(0);
  EXPECT_EQ(9, points);
  EXPECT_EQ(before, native::LiveAllocations());
}

// Wine does this from version 9 on.
TEST(NativeNumbers, AreWrittenOutWhileFifteenDecimalsHoldThem) {
  const std::pair<double, const char16_t*> rows[] = {
      {0.0005, u"0.0005"},
      {1e-7, u"0.0000001"},
      {-1e-7, u"-0.0000001"},
      {5.6789e-11, u"0.000000000056789"},
      {5.6789e-12, u"5.6789E-12"},
      {1e-14, u"0.00000000000001"},
      {1e-15, u"1E-15"},
      {1.0 / 300000, u"3.33333333333333E-06"},
      {1.25e-300, u"1.25E-300"},
      {999999999999999.0, u"999999999999999"},
      {1e15, u"1E+15"},
      {-0.0, u"0"},
  };
  for (const auto& [number, text] : rows) {
    Variant value;
    VARIANT& raw = *value.put();
    raw.vt = VT_R8;
    raw.dblVal = number;
    ASSERT_EQ(S_OK, value.ChangeType(VT_BSTR));
    EXPECT_EQ(std::u16string_view(text), std::u16string_view(value.text()));
  }
}

TEST(NativeImpersonation, CountsForEachThreadAndOpensItsToken) {
  std::thread([] {
    HANDLE token = nullptr;
    CoImpersonateClient();
    EXPECT_TRUE(OpenThreadToken(GetCurrentThread(), TOKEN_QUERY, TRUE, &token));
    EXPECT_TRUE(CloseHandle(token));
    CoRevertToSelf();
    EXPECT_FALSE(OpenThreadToken(GetCurrentThread(), TOKEN_QUERY, TRUE, &token));
    CoImpersonateClient();
    EXPECT_EQ(2, native::ImpersonationCountsOfThread().impersonated);
    EXPECT_EQ(1, native::ImpersonationCountsOfThread().reverted);
    CoRevertToSelf();
  }).join();
  EXPECT_EQ(0, native::ImpersonationCountsOfThread().impersonated);
}

TEST(NativeVersion, IsWhatWasSet) {
  OSVERSIONINFOA info = {};
  info.dwOSVersionInfoSize = sizeof info;
  native::SetOsVersion(VER_PLATFORM_WIN32_NT, 5, 0);
  ASSERT_TRUE(GetVersionExA(&info));
  EXPECT_EQ(5u, info.dwMajorVersion);
  EXPECT_EQ(0u, info.dwMinorVersion);
  native::SetOsVersion(VER_PLATFORM_WIN32_NT, 6, 1);
}

TEST(NativeModule, RunsItsEntryPointAndKnowsItsFile) {
  constexpr char kMark[] = "WIFI_PROVIDER_TEST_MODULE";
  const HMODULE module = LoadLibraryA("platform_test_module.so");
  ASSERT_NE(nullptr, module);
  const auto program = std::filesystem::read_symlink("/proc/self/exe");
  const std::string file = program.parent_path() / "platform_test_module.so";
  EXPECT_EQ(file, platform::EnvironmentText(kMark));
  OLECHAR name[5];
  EXPECT_EQ(5u, GetModuleFileNameW(module, name, 5));
  EXPECT_EQ(OLECHAR{0}, name[4]);
  const auto answer = reinterpret_cast<int (*)()>(GetProcAddress(module, "TestModuleAnswer"));
  ASSERT_NE(nullptr, answer);
  EXPECT_EQ(42, answer());
  EXPECT_TRUE(FreeLibrary(module));
  EXPECT_FALSE(platform::EnvironmentText(kMark));
  EXPECT_FALSE(FreeLibrary(nullptr));
}

TEST(NativeDebugOutput, EndsEveryLineOnce) {
  testing::internal::CaptureStderr();
  OutputDebugStringA("one");
  OutputDebugStringA("two\n");
  OutputDebugStringA(nullptr);
  EXPECT_EQ("one\ntwo\n", testing::internal::GetCapturedStderr());
}

class NativeRegistryFile : public testing::Test {
 protected:
  void SetUp() override { native::ClearRegistry(); }
  void TearDown() override {
    native::ClearRegistry();
    std::filesystem::remove_all(folder_);
  }

  static void Set(const OLECHAR* path, const OLECHAR* name, DWORD type, const void* data,
                  DWORD size) {
    HKEY key = nullptr;
    ASSERT_EQ(0, RegCreateKeyExW(HKEY_CLASSES_ROOT, path, 0, nullptr, 0, KEY_ALL_ACCESS, nullptr,
                                 &key, nullptr));
    EXPECT_EQ(0, RegSetValueExW(key, name, 0, type, static_cast<const BYTE*>(data), size));
    EXPECT_EQ(0, RegCloseKey(key));
  }
  static std::string Value(const OLECHAR* path, const OLECHAR* name) {
    HKEY key = nullptr;
    if (RegOpenKeyExW(HKEY_CLASSES_ROOT, path, 0, KEY_READ, &key) != 0) return "no key";
    BYTE data[64];
    DWORD size = sizeof data;
    const LSTATUS result = RegQueryValueExW(key, name, nullptr, nullptr, data, &size);
    RegCloseKey(key);
    return result == 0 ? std::string(reinterpret_cast<char*>(data), size) : "no value";
  }
  std::string Contents() const {
    std::ifstream file(path_, std::ios::binary);
    return {std::istreambuf_iterator<char>(file), {}};
  }
  void Write(const std::string& contents) const {
    std::ofstream(path_, std::ios::binary) << contents;
  }

  const std::filesystem::path folder_ =
      std::filesystem::temp_directory_path() /
      ("wifi_registry_" + std::to_string(reinterpret_cast<std::uintptr_t>(this)) + "_" +
       std::to_string(std::filesystem::hash_value(std::filesystem::read_symlink("/proc/self"))));
  const std::string path_ = (std::filesystem::create_directory(folder_), folder_ / "registry.json");
};

TEST_F(NativeRegistryFile, KeepsEveryChange) {
  ASSERT_TRUE(native::KeepRegistryIn(path_));
  const OLECHAR lone[] = {0xD800, 0};
  Set(OLESTR("A \"b\"\\\u00E9"), OLESTR("Text"), REG_SZ, OLESTR("h\u00E9\n"), 8);
  Set(OLESTR("A \"b\""), OLESTR("Number"), REG_DWORD, "\x01\x02\x03\xFF", 4);
  Set(OLESTR("A \"b\""), OLESTR("Lone"), REG_SZ, lone, 4);
  Set(OLESTR("A \"b\""), nullptr, REG_BINARY, "\x00\xFF", 2);
  const std::string kept = Contents();
  native::ClearRegistry();
  EXPECT_EQ("no key", Value(OLESTR("A \"b\""), nullptr));
  EXPECT_EQ(kept, Contents());
  ASSERT_TRUE(native::KeepRegistryIn(path_));
  EXPECT_EQ(kept, Contents());
  EXPECT_EQ(std::string(reinterpret_cast<const char*>(u"h\u00E9\n"), 8),
            Value(OLESTR("a \"B\"\\\u00C9"), OLESTR("TEXT")));
  EXPECT_EQ("\x01\x02\x03\xFF", Value(OLESTR("A \"b\""), OLESTR("Number")));
  EXPECT_EQ(std::string(reinterpret_cast<const char*>(lone), 4),
            Value(OLESTR("A \"b\""), OLESTR("Lone")));
  EXPECT_EQ(std::string("\x00\xFF", 2), Value(OLESTR("A \"b\""), nullptr));
  EXPECT_EQ(0, RegDeleteTreeW(HKEY_CLASSES_ROOT, OLESTR("A \"b\"")));
  EXPECT_EQ(std::string::npos, Contents().find("Text"));
}

TEST_F(NativeRegistryFile, RefusesFilesThatHoldNoRegistry) {
  Set(OLESTR("Kept"), nullptr, REG_BINARY, "x", 1);
  for (const char* contents :
       {"", "text", "[]", "{\"registry\": 2, \"root\": {}}", "{\"registry\": 1}",
        "{\"registry\": 1, \"root\": 3}", "{\"registry\": 1, \"root\": {\"keys\": {\"a\": 1}}}",
        "{\"registry\": 1, \"root\": {\"values\": {\"a\": {\"bytes\": [1]}}}}",
        "{\"registry\": 1, \"root\": {\"values\": {\"a\": {\"type\": 3, \"bytes\": [\"x\"]}}}}"}) {
    SCOPED_TRACE(contents);
    Write(contents);
    EXPECT_FALSE(native::KeepRegistryIn(path_));
    EXPECT_EQ(contents, Contents());
    EXPECT_EQ("x", Value(OLESTR("Kept"), nullptr));
  }
  EXPECT_FALSE(native::KeepRegistryIn(folder_ / "none" / "registry.json"));
  EXPECT_FALSE(native::KeepRegistryIn(folder_));
}

TEST_F(NativeRegistryFile, SaysWhenAChangeCannotBeKept) {
  ASSERT_TRUE(native::KeepRegistryIn(path_));
  std::filesystem::remove_all(folder_);
  HKEY key = nullptr;
  EXPECT_EQ(static_cast<LSTATUS>(ERROR_REGISTRY_IO_FAILED),
            RegCreateKeyExW(HKEY_CURRENT_USER, OLESTR("New"), 0, nullptr, 0, KEY_ALL_ACCESS,
                            nullptr, &key, nullptr));
  EXPECT_EQ(nullptr, key);
}

}  // namespace
