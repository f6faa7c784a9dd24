#pragma once
// What tests and the host change in the platform around the provider. The provider itself uses none
// of it. Paths are UTF-8.

#include <string>

#include "platform/platform.h"

namespace platform {

/// From now on GetVersionExA answers NT `major`.`minor` to `module` (null: to this program).
void SetOsVersion(HMODULE module, DWORD major, DWORD minor);

/// From now on the registry is kept in `file`. Returns false if the system has a registry of its
/// own, or if the file cannot be used.
bool KeepRegistryIn(const std::string& file);

/// While the object lives, HKEY_LOCAL_MACHINE of this process is an empty private key.
class PrivateLocalMachine {
 public:
  PrivateLocalMachine();
  PrivateLocalMachine(const PrivateLocalMachine&) = delete;
  PrivateLocalMachine& operator=(const PrivateLocalMachine&) = delete;
  ~PrivateLocalMachine();
};

/// While the object lives, this thread is in an apartment and may call COM objects.
class Apartment {
 public:
  enum class Kind {
    kSingleThreaded,
    kMultithreaded,  ///< shared with all threads of this kind, and so are the objects
  };

  explicit Apartment(Kind kind = Kind::kSingleThreaded);
  Apartment(const Apartment&) = delete;
  Apartment& operator=(const Apartment&) = delete;
  ~Apartment();
};

}  // namespace platform
