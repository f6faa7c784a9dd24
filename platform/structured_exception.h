#pragma once
// The fence around code and memory that are not ours. On Windows they can raise structured
// exceptions (an access violation, RaiseException, another compiler's C++ exception) that
// `catch (...)` may not see and that skip destructors. The fence stops them at the call itself, so
// that everything above needs only C++ rules. Elsewhere it knows C++ exceptions alone.
//
// What runs behind it must hold no object with a destructor while foreign code runs.

#include <exception>
#include <new>
#include <type_traits>
#include <utility>

#include "platform/platform.h"

namespace platform {

/// Stands for a structured exception that code which is not ours raised.
class StructuredException : public std::exception {
 public:
  const char* what() const noexcept override { return "structured exception"; }
};

/// Runs step(argument). C++ exceptions pass through, structured ones become StructuredException.
void RunFenced(void (*step)(void*), void* argument);
/// Runs step(argument); whether it ended without an exception of any kind. Needs no memory.
bool Survives(void (*step)(void*), void* argument) noexcept;

/// Runs `call` behind the fence; whether it ended without an exception of any kind.
template <class Call>
bool Survives(Call&& call) noexcept {
  return Survives(
      [](void* argument) { (*static_cast<std::remove_reference_t<Call>*>(argument))(); }, &call);
}

/// Runs `call` behind the fence and returns what it returns; throws StructuredException, or what
/// the call throws.
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

/// The last fence of an entry point: what `steps` (to HRESULT) answer, E_OUTOFMEMORY without
/// memory, E_UNEXPECTED after every other exception.
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
