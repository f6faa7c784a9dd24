#include <gtest/gtest.h>

#include <mutex>
#include <string>
#include <thread>

#include "platform/critical_section.h"
#include "platform/environment.h"

namespace {

TEST(System, LocksOutOtherThreadsButNotItsOwner) {
  platform::CriticalSection section;
  int count = 0;
  const auto work = [&] {
    for (int i = 0; i < 10000; ++i) {
      const std::lock_guard outer(section);
      const std::lock_guard inner(section);
      ++count;
    }
  };
  std::thread other(work);
  work();
  other.join();
  EXPECT_EQ(20000, count);
}

TEST(System, ReadsEnvironmentVariables) {
  constexpr char kName[] = "WIFI_PROVIDER_TEST_VARIABLE";
  char value[4] = "~~~";
  SetLastError(0);
  EXPECT_EQ(0u, GetEnvironmentVariableA(kName, value, 4));
  EXPECT_EQ(DWORD{ERROR_ENVVAR_NOT_FOUND}, GetLastError());
  EXPECT_FALSE(platform::EnvironmentText(kName));
  ASSERT_TRUE(SetEnvironmentVariableA(kName, "abc"));
  EXPECT_EQ(4u, GetEnvironmentVariableA(kName, value, 3));
  EXPECT_STREQ("~~~", value);
  EXPECT_EQ(3u, GetEnvironmentVariableA(kName, value, 4));
  EXPECT_STREQ("abc", value);
  EXPECT_EQ("abc", platform::EnvironmentText(kName));
  ASSERT_TRUE(SetEnvironmentVariableA(kName, ""));
  EXPECT_EQ("", platform::EnvironmentText(kName));
  ASSERT_TRUE(SetEnvironmentVariableA(kName, nullptr));
  EXPECT_FALSE(platform::EnvironmentText(kName));
  EXPECT_FALSE(SetEnvironmentVariableA("", "x"));
}

TEST(System, AnswersTheVersionForTheRightSizeOnly) {
  OSVERSIONINFOA info = {};
  info.dwOSVersionInfoSize = 5;
  EXPECT_FALSE(GetVersionExA(&info));
  EXPECT_EQ(DWORD{ERROR_INSUFFICIENT_BUFFER}, GetLastError());
  info.dwOSVersionInfoSize = sizeof info;
  ASSERT_TRUE(GetVersionExA(&info));
  EXPECT_EQ(DWORD{VER_PLATFORM_WIN32_NT}, info.dwPlatformId);
  EXPECT_GE(info.dwMajorVersion, 5u);
}

TEST(System, GivesTokensOfTheProcessButNotOfAThreadThatIsItself) {
  HANDLE token = nullptr;
  EXPECT_FALSE(OpenThreadToken(GetCurrentThread(), TOKEN_QUERY, TRUE, &token));
  EXPECT_EQ(DWORD{ERROR_NO_TOKEN}, GetLastError());
  ASSERT_TRUE(OpenProcessToken(GetCurrentProcess(), TOKEN_QUERY, &token));

  const HMODULE library = LoadLibraryA("userenv.dll");
  ASSERT_NE(nullptr, library);
  EXPECT_EQ(nullptr, GetProcAddress(library, "NoSuchFunction"));
  EXPECT_EQ(DWORD{ERROR_PROC_NOT_FOUND}, GetLastError());
  using Function = BOOL(WINAPI*)(HANDLE, LPSTR, DWORD*);
  const auto directoryOf = reinterpret_cast<Function>(
      reinterpret_cast<void*>(GetProcAddress(library, "GetUserProfileDirectoryA")));
  ASSERT_NE(nullptr, directoryOf);
  char directory[260] = "";
  DWORD size = 1;
  EXPECT_FALSE(directoryOf(token, directory, &size));
  EXPECT_EQ(DWORD{ERROR_INSUFFICIENT_BUFFER}, GetLastError());
  ASSERT_LE(size, sizeof directory);
  EXPECT_TRUE(directoryOf(token, directory, &size));
  EXPECT_EQ(std::string(directory).size() + 1, size);
  EXPECT_GT(size, 1u);

  EXPECT_TRUE(FreeLibrary(library));
  EXPECT_TRUE(CloseHandle(token));
  EXPECT_FALSE(CloseHandle(token));
  EXPECT_EQ(DWORD{ERROR_INVALID_HANDLE}, GetLastError());
}

TEST(System, SaysThatALibraryIsMissing) {
  EXPECT_EQ(nullptr, LoadLibraryA("no_such_library.dll"));
  EXPECT_EQ(DWORD{ERROR_MOD_NOT_FOUND}, GetLastError());
}

TEST(System, KeepsTheLastErrorOfEachThread) {
  SetLastError(17);
  DWORD seen = 17;
  std::thread([&] { seen = GetLastError(); }).join();
  EXPECT_NE(17u, seen);
}

}  // namespace
