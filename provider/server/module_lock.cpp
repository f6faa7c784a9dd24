#include "provider/server/module_lock.h"

#include <mutex>

#include "platform/critical_section.h"

namespace wifi {
namespace {

struct {
  platform::CriticalSection section;
  long objects = 0;
  long serverLocks = 0;
} locks;

}  // namespace

ModuleLock::ModuleLock() {
  const std::lock_guard guard(locks.section);
  ++locks.objects;
}

ModuleLock::~ModuleLock() {
  const std::lock_guard guard(locks.section);
  --locks.objects;
}

void ModuleLock::LockServer(bool lock) {
  const std::lock_guard guard(locks.section);
  if (lock) {
    ++locks.serverLocks;
  } else if (locks.serverLocks > 0) {
    --locks.serverLocks;
  }
}

bool ModuleLock::None() {
  const std::lock_guard guard(locks.section);
  return locks.objects == 0 && locks.serverLocks == 0;
}

}  // namespace wifi
