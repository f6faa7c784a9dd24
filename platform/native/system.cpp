#include "platform/native/system.h"

#include <unistd.h>

#include <atomic>
#include <cstdlib>
#include <cstring>
#include <mutex>
#include <set>
#include <string>

#include "platform/native/observe.h"

namespace {

thread_local DWORD lastError = 0;
thread_local native::ImpersonationCounts impersonation;
thread_local bool impersonating = false;

std::mutex versionLock;
OSVERSIONINFOA version = {sizeof(OSVERSIONINFOA), 6, 1, 7601, VER_PLATFORM_WIN32_NT, {}};

// A change may reallocate the environment of the C library.
std::mutex environmentLock;

std::atomic<bool> processTokensRefused = false;

std::mutex tokenLock;
std::uintptr_t lastToken = 0x1000;
std::set<std::uintptr_t>& Tokens() {
  static auto* tokens = new std::set<std::uintptr_t>;
  return *tokens;
}

constexpr std::intptr_t kCurrentProcess = -1;
constexpr std::intptr_t kCurrentThread = -2;

BOOL Fail(DWORD error) {
  lastError = error;
  return FALSE;
}

BOOL OpenToken(HANDLE* token) {
  if (token == nullptr) return Fail(ERROR_NOACCESS);
  const std::lock_guard guard(tokenLock);
  lastToken += 4;
  Tokens().insert(lastToken);
  *token = reinterpret_cast<HANDLE>(lastToken);
  return TRUE;
}

bool IsToken(HANDLE handle) {
  const std::lock_guard guard(tokenLock);
  return Tokens().contains(reinterpret_cast<std::uintptr_t>(handle));
}

}  // namespace

namespace native {

ImpersonationCounts ImpersonationCountsOfThread() {
  return impersonation;
}

void RefuseProcessTokens(bool refuse) {
  processTokensRefused = refuse;
}

void SetOsVersion(DWORD platformId, DWORD major, DWORD minor) {
  const std::lock_guard guard(versionLock);
  version.dwPlatformId = platformId;
  version.dwMajorVersion = major;
  version.dwMinorVersion = minor;
}

BOOL UserProfileDirectory(HANDLE token, LPSTR directory, DWORD* size) {
  if (size == nullptr) return Fail(ERROR_INVALID_PARAMETER);
  if (!IsToken(token)) return Fail(ERROR_INVALID_HANDLE);
  const std::lock_guard guard(environmentLock);
  const char* home = std::getenv("HOME");
  if (home == nullptr) return Fail(ERROR_FILE_NOT_FOUND);
  const std::size_t needed = std::strlen(home) + 1;
  const bool fits = directory != nullptr && *size >= needed;
  if (fits) std::memcpy(directory, home, needed);
  *size = static_cast<DWORD>(needed);
  return fits ? TRUE : Fail(ERROR_INSUFFICIENT_BUFFER);
}

}  // namespace native

HRESULT CoImpersonateClient() {
  ++impersonation.impersonated;
  impersonating = true;
  return S_OK;
}

HRESULT CoRevertToSelf() {
  ++impersonation.reverted;
  impersonating = false;
  return S_OK;
}

DWORD GetLastError() {
  return lastError;
}
void SetLastError(DWORD error) {
  lastError = error;
}

BOOL GetVersionExA(OSVERSIONINFOA* info) {
  if (info == nullptr || info->dwOSVersionInfoSize != sizeof(OSVERSIONINFOA)) {
    return Fail(ERROR_INSUFFICIENT_BUFFER);
  }
  const std::lock_guard guard(versionLock);
  *info = version;
  return TRUE;
}

void OutputDebugStringA(LPCSTR text) {
  if (text == nullptr || *text == '\0') return;
  std::string line(text);
  if (line.back() != '\n') line.push_back('\n');
  // One call, so that the lines of several threads do not mix. A failure is ignored.
  [[maybe_unused]] const ssize_t written = write(STDERR_FILENO, line.data(), line.size());
}

void InitializeCriticalSection(CRITICAL_SECTION* section) {
  section->impl = new std::recursive_mutex;
}
void EnterCriticalSection(CRITICAL_SECTION* section) {
  static_cast<std::recursive_mutex*>(section->impl)->lock();
}
void LeaveCriticalSection(CRITICAL_SECTION* section) {
  static_cast<std::recursive_mutex*>(section->impl)->unlock();
}
void DeleteCriticalSection(CRITICAL_SECTION* section) {
  delete static_cast<std::recursive_mutex*>(section->impl);
  section->impl = nullptr;
}

HANDLE GetCurrentThread() {
  return reinterpret_cast<HANDLE>(kCurrentThread);
}
HANDLE GetCurrentProcess() {
  return reinterpret_cast<HANDLE>(kCurrentProcess);
}

BOOL OpenThreadToken(HANDLE thread, DWORD, BOOL, HANDLE* token) {
  if (thread != GetCurrentThread()) return Fail(ERROR_INVALID_HANDLE);
  if (!impersonating) return Fail(ERROR_NO_TOKEN);
  return OpenToken(token);
}

BOOL OpenProcessToken(HANDLE process, DWORD, HANDLE* token) {
  if (process != GetCurrentProcess()) return Fail(ERROR_INVALID_HANDLE);
  if (processTokensRefused) return Fail(ERROR_ACCESS_DENIED);
  return OpenToken(token);
}

BOOL CloseHandle(HANDLE handle) {
  if (handle == GetCurrentThread() || handle == GetCurrentProcess()) return TRUE;
  const std::lock_guard guard(tokenLock);
  return Tokens().erase(reinterpret_cast<std::uintptr_t>(handle)) == 1 ? TRUE
                                                                       : Fail(ERROR_INVALID_HANDLE);
}

DWORD GetEnvironmentVariableA(LPCSTR name, LPSTR value, DWORD size) {
  const std::lock_guard guard(environmentLock);
  const char* found = name == nullptr ? nullptr : std::getenv(name);
  if (found == nullptr) {
    lastError = ERROR_ENVVAR_NOT_FOUND;
    return 0;
  }
  const std::size_t length = std::strlen(found);
  if (value == nullptr || size <= length) return static_cast<DWORD>(length + 1);
  std::memcpy(value, found, length + 1);
  return static_cast<DWORD>(length);
}

BOOL SetEnvironmentVariableA(LPCSTR name, LPCSTR value) {
  if (name == nullptr || *name == '\0' || std::strchr(name, '=') != nullptr) {
    return Fail(ERROR_INVALID_PARAMETER);
  }
  const std::lock_guard guard(environmentLock);
  const int result = value == nullptr ? unsetenv(name) : setenv(name, value, 1);
  return result == 0 ? TRUE : Fail(ERROR_INVALID_PARAMETER);
}
