#pragma once

namespace wifi {

/// A member of each COM object: the module stays loaded while one exists. Server locks are counted
/// separately.
class ModuleLock {
 public:
  ModuleLock();
  ModuleLock(const ModuleLock&) = delete;
  ModuleLock& operator=(const ModuleLock&) = delete;
  ~ModuleLock();

  /// Adds or removes a server lock. Removing one that was never added does nothing.
  static void LockServer(bool lock);
  /// Whether there is neither a live object nor a server lock.
  static bool None();
};

}  // namespace wifi
