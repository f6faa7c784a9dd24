#include "platform/control/control.h"
#include "platform/native/observe.h"

namespace platform {

void SetOsVersion(HMODULE, DWORD major, DWORD minor) {
  native::SetOsVersion(VER_PLATFORM_WIN32_NT, major, minor);
}

bool KeepRegistryIn(const std::string& file) {
  return native::KeepRegistryIn(file);
}

// The registry is in memory and starts empty.
PrivateLocalMachine::PrivateLocalMachine() {
  native::ClearRegistry();
}
PrivateLocalMachine::~PrivateLocalMachine() {
  native::ClearRegistry();
}

Apartment::Apartment(Kind) {}
Apartment::~Apartment() = default;

}  // namespace platform
