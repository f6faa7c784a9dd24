#pragma once
// Kernel and registry functions with the names and results of Windows, as far as the product uses
// them.
//
// Narrower than Windows:
// - The ANSI code page is always 1252. The only other code page is CP_UTF8.
// - CompareStringW compares code units and ignores the locale. With NORM_IGNORECASE it upper-cases
//   the letters of code page 1252 first. LCMapStringW upper-cases the same letters and does nothing
//   else.
// - The registry is in memory (observe.h can keep it in a file). It has REG_SZ, REG_DWORD and
//   REG_BINARY, and no access rights.
// - A module without a path is searched for only in the folder of the program. "userenv.dll" is
//   built in. The result of DllMain is ignored.
// - Names of environment variables are case-sensitive.

#include "platform/native/com.h"

inline constexpr UINT CP_ACP = 0;
inline constexpr UINT CP_UTF8 = 65001;
inline constexpr DWORD WC_NO_BEST_FIT_CHARS = 0x400;
inline constexpr DWORD MB_ERR_INVALID_CHARS = 8;

inline constexpr LCID LOCALE_SYSTEM_DEFAULT = 0x0800;
inline constexpr LCID LOCALE_USER_DEFAULT = 0x0400;
inline constexpr LCID LOCALE_INVARIANT = 0x7F;
inline constexpr DWORD NORM_IGNORECASE = 1;
inline constexpr DWORD LCMAP_UPPERCASE = 0x200;
inline constexpr int CSTR_LESS_THAN = 1;
inline constexpr int CSTR_EQUAL = 2;
inline constexpr int CSTR_GREATER_THAN = 3;

inline constexpr DWORD VER_PLATFORM_WIN32_NT = 2;
struct OSVERSIONINFOA {
  DWORD dwOSVersionInfoSize;
  DWORD dwMajorVersion;
  DWORD dwMinorVersion;
  DWORD dwBuildNumber;
  DWORD dwPlatformId;
  CHAR szCSDVersion[128];
};

struct CRITICAL_SECTION {
  void* impl;
};

struct HKEY__;
using HKEY = HKEY__*;
inline const HKEY HKEY_CLASSES_ROOT = reinterpret_cast<HKEY>(std::uintptr_t{0x80000000u});
inline const HKEY HKEY_CURRENT_USER = reinterpret_cast<HKEY>(std::uintptr_t{0x80000001u});
inline const HKEY HKEY_LOCAL_MACHINE = reinterpret_cast<HKEY>(std::uintptr_t{0x80000002u});
inline constexpr DWORD REG_SZ = 1;
inline constexpr DWORD REG_BINARY = 3;
inline constexpr DWORD REG_DWORD = 4;
inline constexpr REGSAM KEY_READ = 0x20019;
inline constexpr REGSAM KEY_WRITE = 0x20006;
inline constexpr REGSAM KEY_ALL_ACCESS = 0xF003F;
inline constexpr DWORD REG_OPTION_NON_VOLATILE = 0;
inline constexpr DWORD REG_CREATED_NEW_KEY = 1;
inline constexpr DWORD REG_OPENED_EXISTING_KEY = 2;

inline constexpr DWORD TOKEN_QUERY = 8;
inline constexpr DWORD DLL_PROCESS_DETACH = 0;
inline constexpr DWORD DLL_PROCESS_ATTACH = 1;

struct HINSTANCE__;
using HINSTANCE = HINSTANCE__*;
using HMODULE = HINSTANCE;
using FARPROC = void (*)();

extern "C" {
int MultiByteToWideChar(UINT codePage, DWORD flags, LPCSTR text, int length, LPWSTR wide,
                        int wideLength);
int WideCharToMultiByte(UINT codePage, DWORD flags, LPCWSTR wide, int wideLength, LPSTR text,
                        int length, LPCSTR defaultChar, BOOL* usedDefaultChar);
int CompareStringW(LCID locale, DWORD flags, LPCWSTR left, int leftLength, LPCWSTR right,
                   int rightLength);

int LCMapStringW(LCID locale, DWORD flags, LPCWSTR text, int length, LPWSTR mapped,
                 int mappedLength);

BOOL GetVersionExA(OSVERSIONINFOA* info);
void OutputDebugStringA(LPCSTR text);
DWORD GetLastError();
void SetLastError(DWORD error);

void InitializeCriticalSection(CRITICAL_SECTION* section);
void EnterCriticalSection(CRITICAL_SECTION* section);
void LeaveCriticalSection(CRITICAL_SECTION* section);
void DeleteCriticalSection(CRITICAL_SECTION* section);

LSTATUS RegOpenKeyExA(HKEY key, LPCSTR subKey, DWORD options, REGSAM access, HKEY* result);
LSTATUS RegQueryValueExA(HKEY key, LPCSTR name, DWORD* reserved, DWORD* type, BYTE* data,
                         DWORD* size);
LSTATUS RegCreateKeyExW(HKEY key, LPCWSTR subKey, DWORD reserved, LPWSTR className, DWORD options,
                        REGSAM access, void* security, HKEY* result, DWORD* disposition);
LSTATUS RegOpenKeyExW(HKEY key, LPCWSTR subKey, DWORD options, REGSAM access, HKEY* result);
LSTATUS RegQueryValueExW(HKEY key, LPCWSTR name, DWORD* reserved, DWORD* type, BYTE* data,
                         DWORD* size);
LSTATUS RegSetValueExW(HKEY key, LPCWSTR name, DWORD reserved, DWORD type, const BYTE* data,
                       DWORD size);
LSTATUS RegEnumKeyExW(HKEY key, DWORD index, LPWSTR name, DWORD* length, DWORD* reserved,
                      LPWSTR className, DWORD* classLength, void* lastWriteTime);
LSTATUS RegDeleteKeyW(HKEY key, LPCWSTR subKey);
LSTATUS RegDeleteTreeW(HKEY key, LPCWSTR subKey);
LSTATUS RegCloseKey(HKEY key);
LSTATUS RegOverridePredefKey(HKEY key, HKEY replacement);

HMODULE LoadLibraryA(LPCSTR name);
FARPROC GetProcAddress(HMODULE module, LPCSTR name);
BOOL FreeLibrary(HMODULE module);
DWORD GetModuleFileNameW(HMODULE module, LPWSTR name, DWORD size);

// The entry point of the module, which module_entry.cpp calls. Each module defines its own.
__attribute__((visibility("hidden"))) BOOL WINAPI DllMain(HINSTANCE instance, DWORD reason,
                                                          LPVOID reserved);

HANDLE GetCurrentThread();
HANDLE GetCurrentProcess();
BOOL OpenThreadToken(HANDLE thread, DWORD access, BOOL asSelf, HANDLE* token);
BOOL OpenProcessToken(HANDLE process, DWORD access, HANDLE* token);
BOOL CloseHandle(HANDLE handle);

DWORD GetEnvironmentVariableA(LPCSTR name, LPSTR value, DWORD size);
BOOL SetEnvironmentVariableA(LPCSTR name, LPCSTR value);
}
