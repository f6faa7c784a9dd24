#pragma once
// The scalar types, result codes and calling conventions of the Windows interfaces, for systems
// other than Windows. Widths are those of 64-bit Windows: LONG and ULONG have 32 bits, a wide
// character has 16.

#include <cstddef>
#include <cstdint>

using BYTE = std::uint8_t;
using WORD = std::uint16_t;
using DWORD = std::uint32_t;
using SHORT = std::int16_t;
using USHORT = std::uint16_t;
using INT = std::int32_t;
using UINT = std::uint32_t;
using LONG = std::int32_t;
using ULONG = std::uint32_t;
using LONGLONG = std::int64_t;
using ULONGLONG = std::uint64_t;
using BOOL = int;
using HRESULT = LONG;
using LSTATUS = LONG;
using LCID = DWORD;
using REGSAM = ULONG;
using HANDLE = void*;
using LPVOID = void*;
using LPCVOID = const void*;
using CHAR = char;
using LPSTR = char*;
using LPCSTR = const char*;
using WCHAR = char16_t;
using OLECHAR = char16_t;
using LPWSTR = OLECHAR*;
using LPOLESTR = OLECHAR*;
using LPCWSTR = const OLECHAR*;
using LPCOLESTR = const OLECHAR*;

#define OLESTR(text) u##text
#define STDMETHODCALLTYPE
#define STDAPICALLTYPE
#define WINAPI
#define CALLBACK
#define STDAPI extern "C" __attribute__((visibility("default"))) HRESULT
#ifndef TRUE
#define TRUE 1
#define FALSE 0
#endif

constexpr bool SUCCEEDED(HRESULT result) {
  return result >= 0;
}
constexpr bool FAILED(HRESULT result) {
  return result < 0;
}

constexpr HRESULT HResultOf(std::uint32_t bits) {
  return static_cast<HRESULT>(bits);
}

inline constexpr HRESULT S_OK = 0;
inline constexpr HRESULT S_FALSE = 1;
#define COM_RESULT(name, bits, meaning) inline constexpr HRESULT name = HResultOf(bits);
#include "platform/tables/result_codes.inc"

inline constexpr DWORD ERROR_SUCCESS = 0;
inline constexpr DWORD ERROR_FILE_NOT_FOUND = 2;
inline constexpr DWORD ERROR_ACCESS_DENIED = 5;
inline constexpr DWORD ERROR_INVALID_HANDLE = 6;
inline constexpr DWORD ERROR_INVALID_DATA = 13;
inline constexpr DWORD ERROR_INVALID_PARAMETER = 87;
inline constexpr DWORD ERROR_INSUFFICIENT_BUFFER = 122;
inline constexpr DWORD ERROR_BAD_PATHNAME = 161;
inline constexpr DWORD ERROR_MORE_DATA = 234;
inline constexpr DWORD ERROR_NO_MORE_ITEMS = 259;
inline constexpr DWORD ERROR_ENVVAR_NOT_FOUND = 203;
inline constexpr DWORD ERROR_MOD_NOT_FOUND = 126;
inline constexpr DWORD ERROR_PROC_NOT_FOUND = 127;
inline constexpr DWORD ERROR_OUTOFMEMORY = 14;
inline constexpr DWORD ERROR_NOACCESS = 998;
inline constexpr DWORD ERROR_NO_TOKEN = 1008;
inline constexpr DWORD ERROR_REGISTRY_IO_FAILED = 1016;
inline constexpr DWORD ERROR_KEY_DELETED = 1018;
inline constexpr DWORD ERROR_NO_UNICODE_TRANSLATION = 1113;

constexpr HRESULT HRESULT_FROM_WIN32(DWORD error) {
  return error == 0 ? S_OK : HResultOf((error & 0xFFFFu) | 0x80070000u);
}
