#include "adapterapi/quarn_api.h"

#include "simulator/hooks.h"
#include "simulator/library.h"

namespace adapterapi::quarn {
namespace {

simulator::Library library;

}  // namespace

#define QUARN_OPERATION(ordinal, name, parameters, arguments) \
  ApiStatus name parameters {                                 \
    return library.name arguments;                            \
  }
#include "adapterapi/operations.inc"
#undef QUARN_OPERATION

}  // namespace adapterapi::quarn

int SimulatorSet(const char* path, const char* value, char* problem, std::size_t size) noexcept {
  return simulator::SetMember(adapterapi::quarn::library, path, value, problem, size);
}

int SimulatorPlay(const char* text, std::size_t length, char* problem, std::size_t size) noexcept {
  return simulator::PlayScenario(adapterapi::quarn::library, {text, length}, problem, size);
}

int SimulatorTime(long long milliseconds, char* problem, std::size_t size) noexcept {
  return simulator::SetTime(adapterapi::quarn::library, milliseconds, problem, size);
}
