#include "platform/structured_exception.h"

#ifndef _MSC_VER
#include <excpt.h>
#endif

namespace platform {
namespace {

struct FencedStep {
  void (*step)(void*);
  void* argument;
  std::exception_ptr* thrown;  ///< receives a C++ exception; null: the exception is dropped
  bool finished = false;
};

// No C++ exception may reach the frame of RunOuter.
void RunInner(FencedStep* fenced) noexcept {
  try {
    fenced->step(fenced->argument);
    fenced->finished = true;
  } catch (...) {
    if (fenced->thrown != nullptr) *fenced->thrown = std::current_exception();
  }
}

#ifdef _MSC_VER

bool RunOuter(FencedStep* fenced) {
  __try {
    RunInner(fenced);
  } __except (EXCEPTION_EXECUTE_HANDLER) {
    return false;
  }
  return true;
}

#else

// The exception filter. __try1 names it in assembly, so its name must not be decorated.
extern "C" LONG CALLBACK TakeStructuredException(EXCEPTION_POINTERS*) {
  return EXCEPTION_EXECUTE_HANDLER;
}

// The compiler does not know that the handler resumes after the call. So the frame must exist as
// written, and nothing in it may need a destructor.
#ifdef __clang__
__attribute__((noinline, optnone))
#else
__attribute__((noinline, optimize("O0")))
#endif
bool RunOuter(FencedStep* fenced) {
  volatile bool finished = false;
  __try1(TakeStructuredException);
  RunInner(fenced);
  finished = true;
  __except1;
  return finished;
}

#endif
}  // namespace

void RunFenced(void (*step)(void*), void* argument) {
  std::exception_ptr thrown;
  FencedStep fenced{step, argument, &thrown};
  if (!RunOuter(&fenced)) throw StructuredException();
  if (thrown) std::rethrow_exception(thrown);
}

bool Survives(void (*step)(void*), void* argument) noexcept {
  FencedStep fenced{step, argument, nullptr};
  return RunOuter(&fenced) && fenced.finished;
}

}  // namespace platform
