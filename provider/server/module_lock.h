#pragma once

namespace wifi {

/// One reason for the module to stay loaded: a live object. Server locks count the same way.
class ModuleLock {
 public:
  ModuleLock() { Add(); }
  ModuleLock(const ModuleLock&) = delete;
  ModuleLock& operator=(const ModuleLock&) = delete;
  ~ModuleLock() { Remove(); }

  static void Add();
  static void Remove();
  /// Whether no object lives and no server lock is held.
  static bool None();
};

}  // namespace wifi
