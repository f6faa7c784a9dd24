// Each operation of the binding calls the library's function with its own name and its own
// arguments.

#include <gtest/gtest.h>

#include <string>
#include <tuple>
#include <vector>

#include "adapterapi/adapter_api.h"
#include "adapterapi/quarn_api.h"

namespace {

struct Call {
  std::string name;
  std::vector<std::uintptr_t> arguments;
  bool operator==(const Call&) const = default;
};
Call reached;

template <class Value>
std::uintptr_t Shown(Value value) {
  if constexpr (std::is_pointer_v<Value>) {
    return reinterpret_cast<std::uintptr_t>(value);
  } else {
    return value;
  }
}
template <class... Values>
adapterapi::ApiStatus Note(const char* name, Values... values) {
  reached = {name, {Shown(values)...}};
  return -7;
}

}  // namespace

// The library, whose functions the binding imports.
namespace adapterapi::quarn {
extern "C" {
#define QUARN_OPERATION(ordinal, name, parameters, arguments)                \
  ApiStatus name parameters {                                                \
    return std::apply([](auto... values) { return Note(#name, values...); }, \
                      std::make_tuple arguments);                            \
  }
#include "adapterapi/operations.inc"
#undef QUARN_OPERATION
}
}  // namespace adapterapi::quarn

namespace {

/// Calls with the arguments 1, 2, 3…; returns the arguments that the library received.
template <class... Parameters>
void Try(const char* name,
         adapterapi::ApiStatus (adapterapi::AdapterApi::*operation)(Parameters...)) {
  std::uintptr_t next = 0;
  std::vector<std::uintptr_t> given;
  [[maybe_unused]] const auto argument = [&]<class Parameter>(Parameter*) {
    given.push_back(++next);
    if constexpr (std::is_pointer_v<Parameter>) {
      return reinterpret_cast<Parameter>(next);
    } else {
      return static_cast<Parameter>(next);
    }
  };
  const std::tuple<Parameters...> arguments{argument(static_cast<Parameters*>(nullptr))...};
  reached = {};
  const adapterapi::ApiStatus status = std::apply(
      [&](auto... values) { return (adapterapi::ImportedAdapterApi().*operation)(values...); },
      arguments);
  EXPECT_EQ(status, -7) << name;
  EXPECT_EQ(reached, (Call{name, given})) << name;
}

TEST(Binding, EachOperationReachesItsOwnFunction) {
#define QUARN_OPERATION(ordinal, name, parameters, arguments) \
  Try(#name, &adapterapi::AdapterApi::name);
#include "adapterapi/operations.inc"
#undef QUARN_OPERATION
}

}  // namespace
