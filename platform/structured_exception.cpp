#include "platform/structured_exception.h"

#ifdef _WIN32
#ifdef __GNUC__
#include <excpt.h>
#endif
#endif

namespace platform {

#ifndef _WIN32

void RunFenced(void (*step)(void*), void* argument) {
  step(argument);
}

#else

namespace {

struct FencedStep {
  void (*step)(void*);
  void* argument;
  std::exception_ptr thrown;
  DWORD structuredCode = 0;
};

// No C++ exception may reach the frame of RunOuter.
void RunInner(FencedStep* fenced) noexcept {
  try {
    fenced->step(fenced->argument);
  } catch (...) {
    fenced->thrown = std::current_exception();
  }
}

#ifdef __GNUC__

thread_local DWORD caughtCode = 0;

// The filter: named in the assembly of __try1, so with a plain name.
extern "C" LONG CALLBACK TakeStructuredException(EXCEPTION_POINTERS* pointers) {
  caughtCode = pointers->ExceptionRecord->ExceptionCode;
  return EXCEPTION_EXECUTE_HANDLER;
}

// The compiler does not know of the handler, which resumes behind the call: the frame must exist
// as written, with nothing to destroy in it.
__attribute__((noinline, optimize("O0"))) bool RunOuter(FencedStep* fenced) {
  volatile bool finished = false;
  __try1(TakeStructuredException);
  RunInner(fenced);
  finished = true;
  __except1;
  if (!finished) fenced->structuredCode = caughtCode;
  return finished;
}

#else

bool RunOuter(FencedStep* fenced) {
  __try {
    RunInner(fenced);
  } __except (fenced->structuredCode = GetExceptionCode(), EXCEPTION_EXECUTE_HANDLER) {
    return false;
  }
  return true;
}

#endif
}  // namespace

void RunFenced(void (*step)(void*), void* argument) {
  FencedStep fenced{step, argument, nullptr, 0};
  if (!RunOuter(&fenced)) throw StructuredException(fenced.structuredCode);
  if (fenced.thrown) std::rethrow_exception(fenced.thrown);
}

#endif

}  // namespace platform
