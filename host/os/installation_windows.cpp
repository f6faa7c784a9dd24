#include <objbase.h>
#include <softpub.h>
#include <wintrust.h>

#include <vector>

#include "host/os/installation.h"
#include "platform/platform.h"
#include "platform/text.h"

namespace host::os {

std::string FileVersion(const std::string& path) {
  const std::wstring file = platform::WideFromUtf8(path);
  DWORD unused = 0;
  std::vector<char> data(GetFileVersionInfoSizeW(file.c_str(), &unused));
  const auto size = static_cast<DWORD>(data.size());
  VS_FIXEDFILEINFO* fixed = nullptr;
  UINT length = 0;
  if (data.empty() || !GetFileVersionInfoW(file.c_str(), 0, size, data.data()) ||
      !VerQueryValueW(data.data(), L"\\", reinterpret_cast<void**>(&fixed), &length) ||
      length < sizeof *fixed) {
    return "";
  }
  return std::to_string(HIWORD(fixed->dwFileVersionMS)) + "." +
         std::to_string(LOWORD(fixed->dwFileVersionMS)) + "." +
         std::to_string(HIWORD(fixed->dwFileVersionLS));
}

Signature SignatureOf(const std::string& path) {
  const std::wstring wide = platform::WideFromUtf8(path);
  WINTRUST_FILE_INFO file = {};
  file.cbStruct = sizeof file;
  file.pcwszFilePath = wide.c_str();
  WINTRUST_DATA data = {};
  data.cbStruct = sizeof data;
  data.dwUIChoice = WTD_UI_NONE;
  data.fdwRevocationChecks = WTD_REVOKE_NONE;
  data.dwUnionChoice = WTD_CHOICE_FILE;
  data.pFile = &file;
  data.dwStateAction = WTD_STATEACTION_VERIFY;
  // No request leaves the machine.
  data.dwProvFlags = WTD_CACHE_ONLY_URL_RETRIEVAL;
  GUID policy = WINTRUST_ACTION_GENERIC_VERIFY_V2;
  const LONG result = WinVerifyTrust(nullptr, &policy, &data);
  data.dwStateAction = WTD_STATEACTION_CLOSE;
  WinVerifyTrust(nullptr, &policy, &data);
  switch (static_cast<HRESULT>(result)) {
    case S_OK:
      return Signature::kValid;
    case TRUST_E_NOSIGNATURE:
      return Signature::kNone;
    case TRUST_E_PROVIDER_UNKNOWN:
    case TRUST_E_SUBJECT_FORM_UNKNOWN:
    case CRYPT_E_FILE_ERROR:
      return Signature::kUnknown;
    default:
      return Signature::kRefused;
  }
}

bool IsAdministrator() {
  SID_IDENTIFIER_AUTHORITY authority = SECURITY_NT_AUTHORITY;
  PSID group = nullptr;
  if (!AllocateAndInitializeSid(&authority, 2, SECURITY_BUILTIN_DOMAIN_RID, DOMAIN_ALIAS_RID_ADMINS,
                                0, 0, 0, 0, 0, 0, &group)) {
    return false;
  }
  BOOL isMember = FALSE;
  if (!CheckTokenMembership(nullptr, group, &isMember)) isMember = FALSE;
  FreeSid(group);
  return isMember != FALSE;
}

}  // namespace host::os
