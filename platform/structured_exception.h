#pragma once
// The fence around calls into closed libraries. On Windows such a library can raise structured
// exceptions (an access violation, RaiseException, another compiler's C++ exception) that
// `catch (...)` may not see and that skip destructors. The fence turns them, at the call itself,
// into a C++ exception, so that everything above needs only C++ rules. Elsewhere it is a plain
// call.

#include <exception>
#include <type_traits>
#include <utility>

#include "platform/platform.h"

namespace platform {

/// Stands for a structured exception that a closed library raised.
class StructuredException : public std::exception {
 public:
  explicit StructuredException(DWORD code) noexcept : code_(code) {}
  /// The exception's code, such as 0xC0000005 for an access violation.
  DWORD code() const noexcept { return code_; }
  const char* what() const noexcept override { return "structured exception"; }

 private:
  DWORD code_;
};

/// Runs step(argument). C++ exceptions pass through, structured ones become StructuredException.
void RunFenced(void (*step)(void*), void* argument);

/// Runs `call` behind the fence and returns what it returns.
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

}  // namespace platform
