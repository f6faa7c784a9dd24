#pragma once
// Both closed libraries at the lowest cost: prepared records, lists of any length.

#include <cstddef>
#include <cstdint>
#include <functional>
#include <type_traits>
#include <vector>

#include "adapterapi/adapter_api.h"

namespace bench {

using namespace adapterapi;  // the operation list names its records without a namespace

/// An adapter control library that answers every getter with typical values and every setter with
/// success.
class Library final : public AdapterApi {
 public:
  /// Adapters 0 to `adapters` - 1; each sees `networks` networks and excludes as many.
  Library(std::size_t adapters, std::size_t networks);

#define QUARN_OPERATION(ordinal, name, parameters, arguments) ApiStatus name parameters override;
#include "adapterapi/operations.inc"
#undef QUARN_OPERATION

  /// Whether calls are recorded for RepeatCalls.
  void NoteCalls(bool on) {
    noting_ = on;
  }
  /// Repeats the recorded calls as the provider made them: through the interface.
  void RepeatCalls() {
    for (const auto& call : noted_) call();
  }

  /// The MAC address of the n-th network or adapter.
  static void WriteMac(std::size_t index, MacAddress& mac);

 private:
  /// Writes the output for arguments of this type; leaves the others unchanged.
  template <class Argument>
  void Answer(Argument argument);
  template <class... Arguments>
  ApiStatus Call(ApiStatus (AdapterApi::*operation)(Arguments...),
                 std::type_identity_t<Arguments>... arguments);
  /// The operation can be called with the parenthesised arguments of the operation list.
  template <class... Arguments>
  auto Bound(ApiStatus (AdapterApi::*operation)(Arguments...)) {
    return [this, operation](Arguments... arguments) { return Call(operation, arguments...); };
  }

  std::vector<char> adapterList_;
  std::vector<char> scanList_;
  std::vector<char> excludeList_;
  std::vector<std::function<void()>> noted_;
  bool noting_ = false;
  alignas(16) unsigned char scratch_[4096] = {};
};

/// Profiles in the profile library's user store, for the whole process.
void SetProfileCount(std::size_t count);

}  // namespace bench
