#pragma once
// The fence around code and memory that are not ours. On Windows they can raise structured
// exceptions (an access violation, RaiseException, another compiler's C++ exception) that
// `catch (...)` may not see and that skip destructors. The fence catches them at the call itself,
// so that all code above it needs only the rules of C++. Elsewhere it handles C++ exceptions only.
//
// The code that calls foreign code inside the fence must hold no object with a destructor, because
// a structured exception would skip it.
//
//     HRESULT result = E_FAIL;
//     Survives([&] { result = instance->Put(name, 0, value, 0); });  // an exception leaves E_FAIL
//     return CallFenced([&] { return sink->Indicate(1, &instance); });  // an exception is thrown
//     on

#include <exception>
#include <new>
#include <type_traits>
#include <utility>

#include "platform/platform.h"

namespace platform {

/// Thrown in place of a structured exception that foreign code raised.
class StructuredException : public std::exception {
 public:
  const char* what() const noexcept override { return "structured exception"; }
};

#ifdef _WIN32
/// Runs step(argument). A C++ exception passes through; a structured exception is thrown again as
/// StructuredException.
void RunFenced(void (*step)(void*), void* argument);
/// Runs step(argument). Returns whether it ended without an exception of either kind. Allocates
/// nothing.
bool Survives(void (*step)(void*), void* argument) noexcept;
#else
inline void RunFenced(void (*step)(void*), void* argument) {
  step(argument);
}
inline bool Survives(void (*step)(void*), void* argument) noexcept {
  try {
    step(argument);
    return true;
  } catch (...) {
    return false;
  }
}
#endif

/// Runs `call` inside the fence. Returns whether it ended without an exception of either kind.
template <class Call>
bool Survives(Call&& call) noexcept {
  return Survives(
      [](void* argument) { (*static_cast<std::remove_reference_t<Call>*>(argument))(); }, &call);
}

/// Runs `call` inside the fence and returns its result. Throws StructuredException, or what `call`
/// throws.
template <class Call>
auto CallFenced(Call&& call) -> decltype(call()) {
  using Result = decltype(call());
  if constexpr (std::is_void_v<Result>) {
    RunFenced([](void* argument) { (*static_cast<std::remove_reference_t<Call>*>(argument))(); },
              &call);
  } else {
    struct Frame {
      std::remove_reference_t<Call>* call;
      Result result;
    } frame{&call, Result{}};
    RunFenced(
        [](void* argument) {
          auto* inner = static_cast<Frame*>(argument);
          inner->result = (*inner->call)();
        },
        &frame);
    return frame.result;
  }
}

/// The outermost fence of an entry point. Returns the HRESULT of `steps`, E_OUTOFMEMORY after
/// std::bad_alloc, E_UNEXPECTED after any other exception.
template <class Steps>
HRESULT AnswerFenced(Steps&& steps) noexcept {
  try {
    return CallFenced(steps);
  } catch (const std::bad_alloc&) {
    return E_OUTOFMEMORY;
  } catch (...) {
    return E_UNEXPECTED;
  }
}

}  // namespace platform
