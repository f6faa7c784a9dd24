#include "platform/native/system.h"

BOOL DllMain(HINSTANCE instance, DWORD reason, LPVOID) {
  if (reason == DLL_PROCESS_ATTACH) {
    OLECHAR file[512];
    const DWORD length = GetModuleFileNameW(instance, file, 512);
    char name[512] = "";
    WideCharToMultiByte(CP_UTF8, 0, file, static_cast<int>(length), name, 511, nullptr, nullptr);
    SetEnvironmentVariableA("WIFI_PROVIDER_TEST_MODULE", name);
  } else {
    SetEnvironmentVariableA("WIFI_PROVIDER_TEST_MODULE", nullptr);
  }
  return TRUE;
}

extern "C" __attribute__((visibility("default"))) int TestModuleAnswer() {
  return 42;
}
