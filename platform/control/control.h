#pragma once
// What tests and the host set of the platform around the provider; the provider itself uses none of
// it. Paths are UTF-8.

#include <string>

#include "platform/platform.h"

namespace platform {

/// Lets the version query of `module` (null: of this program) answer NT `major`.`minor` from now
/// on.
void SetOsVersion(HMODULE module, DWORD major, DWORD minor);

/// Keeps the registry in a file from now on; false where the system has its own, or if the file
/// cannot be used.
bool KeepRegistryIn(const std::string& file);

/// While it lives, HKEY_LOCAL_MACHINE of this process is an empty key of its own.
class PrivateLocalMachine {
 public:
  PrivateLocalMachine();
  PrivateLocalMachine(const PrivateLocalMachine&) = delete;
  PrivateLocalMachine& operator=(const PrivateLocalMachine&) = delete;
  ~PrivateLocalMachine();
};

/// While it lives, this thread may call COM objects of the apartment threading model.
class Apartment {
 public:
  Apartment();
  Apartment(const Apartment&) = delete;
  Apartment& operator=(const Apartment&) = delete;
  ~Apartment();
};

}  // namespace platform
