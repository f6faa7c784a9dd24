#include <gtest/gtest.h>

#include <cstring>
#include <string>

#include "platform/bstr.h"

namespace {

constexpr char kScratchName[] = "Software\\WiFiAdapterProviderTest";

class Registry : public testing::Test {
 protected:
  void SetUp() override {
    RegDeleteTreeW(HKEY_CURRENT_USER, kScratch);
    key_ = Create(HKEY_CURRENT_USER, kScratch);
  }
  void TearDown() override {
    EXPECT_EQ(ERROR_SUCCESS, Code(RegDeleteTreeW(HKEY_CURRENT_USER, kScratch)));
    EXPECT_EQ(ERROR_SUCCESS, Code(RegCloseKey(key_)));
  }

  static DWORD Code(LSTATUS status) { return static_cast<DWORD>(status); }

  static HKEY Create(HKEY parent, const OLECHAR* path, DWORD* disposition = nullptr) {
    HKEY key = nullptr;
    EXPECT_EQ(ERROR_SUCCESS, Code(RegCreateKeyExW(parent, path, 0, nullptr, REG_OPTION_NON_VOLATILE,
                                                  KEY_ALL_ACCESS, nullptr, &key, disposition)));
    return key;
  }
  static DWORD Open(HKEY parent, const char* path) {
    HKEY key = nullptr;
    const DWORD code = Code(RegOpenKeyExA(parent, path, 0, KEY_READ, &key));
    EXPECT_EQ(code == ERROR_SUCCESS, key != nullptr);
    if (key != nullptr) {
      EXPECT_EQ(ERROR_SUCCESS, Code(RegCloseKey(key)));
    }
    return code;
  }
  void Set(const OLECHAR* name, DWORD type, const void* data, std::size_t size) {
    EXPECT_EQ(ERROR_SUCCESS,
              Code(RegSetValueExW(key_, name, 0, type, static_cast<const BYTE*>(data),
                                  static_cast<DWORD>(size))));
  }

  static constexpr const OLECHAR* kScratch = OLESTR("Software\\WiFiAdapterProviderTest");
  HKEY key_ = nullptr;
};

TEST_F(Registry, AnswersQueriesWithSizesAndCodes) {
  const DWORD number = 0x01020304;
  Set(OLESTR("Text"), REG_SZ, OLESTR("h\u00E9llo"), 12);
  Set(OLESTR("NoTerminator"), REG_SZ, OLESTR("abc"), 6);
  Set(OLESTR("Number"), REG_DWORD, &number, 4);
  Set(OLESTR("Bytes"), REG_BINARY, "\x01\x00\xFF", 3);
  Set(OLESTR("Empty"), REG_SZ, nullptr, 0);
  Set(nullptr, REG_SZ, OLESTR("def"), 8);
  struct Row {
    const char* name;
    DWORD room;
    DWORD code;
    DWORD type;
    DWORD size;
    const char* data;
  };
  const Row rows[] = {
      {"Text", 64, ERROR_SUCCESS, REG_SZ, 6, "h\xE9llo\0"},
      {"tEXT", 6, ERROR_SUCCESS, REG_SZ, 6, "h\xE9llo\0"},
      {"Text", 5, ERROR_MORE_DATA, REG_SZ, 6, nullptr},
      {"NoTerminator", 4, ERROR_SUCCESS, REG_SZ, 4, "abc\0"},
      {"NoTerminator", 3, ERROR_MORE_DATA, REG_SZ, 4, nullptr},
      {"Number", 4, ERROR_SUCCESS, REG_DWORD, 4, "\x04\x03\x02\x01"},
      {"Number", 3, ERROR_MORE_DATA, REG_DWORD, 4, nullptr},
      {"Bytes", 3, ERROR_SUCCESS, REG_BINARY, 3, "\x01\x00\xFF"},
      {"Empty", 64, ERROR_SUCCESS, REG_SZ, 0, ""},
      {"", 64, ERROR_SUCCESS, REG_SZ, 4, "def\0"},
      {nullptr, 64, ERROR_SUCCESS, REG_SZ, 4, "def\0"},
  };
  for (const Row& row : rows) {
    SCOPED_TRACE(&row - rows);
    std::string data(64, '~');
    DWORD type = 0;
    DWORD size = row.room;
    EXPECT_EQ(row.code, Code(RegQueryValueExA(key_, row.name, nullptr, &type,
                                              reinterpret_cast<BYTE*>(data.data()), &size)));
    EXPECT_EQ(row.type, type);
    EXPECT_EQ(row.size, size);
    const std::string expected = row.data == nullptr ? "" : std::string(row.data, row.size);
    EXPECT_EQ(expected + std::string(64 - expected.size(), '~'), data);
    EXPECT_EQ(ERROR_SUCCESS,
              Code(RegQueryValueExA(key_, row.name, nullptr, nullptr, nullptr, &size)));
    EXPECT_EQ(row.size, size);
  }
  DWORD size = 64;
  BYTE data[64];
  EXPECT_EQ(DWORD{ERROR_FILE_NOT_FOUND},
            Code(RegQueryValueExA(key_, "Missing", nullptr, nullptr, data, &size)));
  EXPECT_EQ(DWORD{ERROR_INVALID_PARAMETER},
            Code(RegQueryValueExA(key_, "Text", nullptr, nullptr, data, nullptr)));
  EXPECT_EQ(DWORD{ERROR_INVALID_PARAMETER},
            Code(RegQueryValueExA(key_, "Text", &size, nullptr, data, &size)));
  size = 7;
  EXPECT_EQ(DWORD{ERROR_MORE_DATA},
            Code(RegQueryValueExW(key_, OLESTR("NoTerminator"), nullptr, nullptr, data, &size)));
  EXPECT_EQ(8u, size);
  EXPECT_EQ(ERROR_SUCCESS,
            Code(RegQueryValueExW(key_, OLESTR("NoTerminator"), nullptr, nullptr, data, &size)));
  EXPECT_EQ(0, std::memcmp(OLESTR("abc"), data, 8));
}

TEST_F(Registry, FindsKeysInAnyLetterCaseAndKeepsTheirSpelling) {
  DWORD disposition = 0;
  RegCloseKey(Create(key_, OLESTR("Sub\\Deep"), &disposition));
  EXPECT_EQ(DWORD{REG_CREATED_NEW_KEY}, disposition);
  RegCloseKey(Create(key_, OLESTR("SUB"), &disposition));
  EXPECT_EQ(DWORD{REG_OPENED_EXISTING_KEY}, disposition);
  EXPECT_EQ(ERROR_SUCCESS, Open(key_, "sub\\dEEP"));
  EXPECT_EQ(ERROR_SUCCESS, Open(key_, "Sub\\"));
  EXPECT_EQ(ERROR_SUCCESS, Open(key_, ""));
  EXPECT_EQ(ERROR_SUCCESS, Open(key_, nullptr));
  EXPECT_EQ(ERROR_SUCCESS, Open(HKEY_CURRENT_USER, kScratchName));
  EXPECT_EQ(DWORD{ERROR_FILE_NOT_FOUND}, Open(key_, "Sub\\None"));
  EXPECT_EQ(DWORD{ERROR_BAD_PATHNAME}, Open(key_, "\\Sub"));
  EXPECT_EQ(DWORD{ERROR_INVALID_HANDLE}, Open(nullptr, "Sub"));

  OLECHAR name[8];
  DWORD length = 8;
  const auto enumerate = [&](DWORD index) {
    return Code(RegEnumKeyExW(key_, index, name, &length, nullptr, nullptr, nullptr, nullptr));
  };
  EXPECT_EQ(ERROR_SUCCESS, enumerate(0));
  EXPECT_EQ(3u, length);
  EXPECT_TRUE(platform::OleStringView(name) == OLESTR("Sub"));
  length = 3;
  EXPECT_EQ(DWORD{ERROR_MORE_DATA}, enumerate(0));
  EXPECT_EQ(DWORD{ERROR_NO_MORE_ITEMS}, enumerate(1));
}

TEST_F(Registry, DeletesKeysUnderOpenHandles) {
  const HKEY deep = Create(key_, OLESTR("Sub\\Deep"));
  EXPECT_EQ(DWORD{ERROR_ACCESS_DENIED}, Code(RegDeleteKeyW(key_, OLESTR("Sub"))));
  EXPECT_EQ(DWORD{ERROR_FILE_NOT_FOUND}, Code(RegDeleteKeyW(key_, OLESTR("None"))));
  EXPECT_EQ(ERROR_SUCCESS, Code(RegDeleteTreeW(key_, OLESTR("sub"))));
  EXPECT_EQ(DWORD{ERROR_FILE_NOT_FOUND}, Code(RegDeleteTreeW(key_, OLESTR("Sub"))));
  EXPECT_EQ(DWORD{ERROR_KEY_DELETED},
            Code(RegSetValueExW(deep, OLESTR("a"), 0, REG_SZ, nullptr, 0)));
  EXPECT_EQ(DWORD{ERROR_KEY_DELETED}, Open(deep, "x"));
  EXPECT_EQ(ERROR_SUCCESS, Code(RegCloseKey(deep)));
  EXPECT_EQ(DWORD{ERROR_INVALID_HANDLE}, Code(RegCloseKey(nullptr)));
  EXPECT_EQ(ERROR_SUCCESS, Code(RegCloseKey(HKEY_CURRENT_USER)));

  RegCloseKey(Create(key_, OLESTR("Other")));
  EXPECT_EQ(ERROR_SUCCESS, Code(RegDeleteKeyW(key_, OLESTR("Other"))));
  EXPECT_EQ(DWORD{ERROR_FILE_NOT_FOUND}, Open(key_, "Other"));
}

TEST_F(Registry, RedirectsPredefinedKeys) {
  EXPECT_EQ(ERROR_SUCCESS, Code(RegOverridePredefKey(HKEY_LOCAL_MACHINE, key_)));
  RegCloseKey(Create(HKEY_LOCAL_MACHINE, OLESTR("Redirected")));
  EXPECT_EQ(ERROR_SUCCESS, Code(RegOverridePredefKey(HKEY_LOCAL_MACHINE, nullptr)));
  EXPECT_EQ(ERROR_SUCCESS, Open(key_, "Redirected"));
  EXPECT_EQ(DWORD{ERROR_FILE_NOT_FOUND}, Open(HKEY_LOCAL_MACHINE, "Redirected"));
  EXPECT_EQ(DWORD{ERROR_INVALID_HANDLE}, Code(RegOverridePredefKey(key_, nullptr)));
}

TEST_F(Registry, ShowsTheClassesOfTheMachineAsClassesRoot) {
  RegCloseKey(Create(HKEY_CLASSES_ROOT, OLESTR("WiFiAdapterProvider.Test\\Sub")));
  EXPECT_EQ(ERROR_SUCCESS,
            Open(HKEY_LOCAL_MACHINE, "SOFTWARE\\Classes\\WiFiAdapterProvider.Test\\Sub"));
  EXPECT_EQ(ERROR_SUCCESS,
            Code(RegDeleteTreeW(HKEY_CLASSES_ROOT, OLESTR("WiFiAdapterProvider.Test"))));
}

}  // namespace
