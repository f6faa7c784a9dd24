#pragma once

namespace wifi {

/// One reason for the module to stay loaded: a live object. Server locks are counted beside them.
class ModuleLock {
 public:
  ModuleLock();
  ModuleLock(const ModuleLock&) = delete;
  ModuleLock& operator=(const ModuleLock&) = delete;
  ~ModuleLock();

  /// Takes a server lock or gives one back; one that was never taken gives back nothing.
  static void LockServer(bool lock);
  /// Whether no object lives and no server lock is held.
  static bool None();
};

}  // namespace wifi
