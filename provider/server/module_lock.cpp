#include "provider/server/module_lock.h"

#include <mutex>

#include "platform/critical_section.h"

namespace wifi {
namespace {

struct LockCount {
  platform::CriticalSection section;
  long count = 0;
};

LockCount& Locks() {
  static LockCount locks;
  return locks;
}

}  // namespace

void ModuleLock::Add() {
  const std::lock_guard guard(Locks().section);
  ++Locks().count;
}

void ModuleLock::Remove() {
  const std::lock_guard guard(Locks().section);
  --Locks().count;
}

bool ModuleLock::None() {
  const std::lock_guard guard(Locks().section);
  return Locks().count == 0;
}

}  // namespace wifi
