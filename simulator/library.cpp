#include "simulator/library.h"

#include <type_traits>

namespace simulator {
namespace {

/// Modules call these while they are loaded and unloaded, when no file may be read, so the calls
/// succeed without a scenario.
constexpr bool NeedsScenario(std::string_view operation) {
  return operation != "SetLibraryMode" && operation != "CloseLibrary";
}

/// The adapter that a call concerns, from its first argument.
std::optional<AdapterNumber> AdapterOf() {
  return std::nullopt;
}
template <class First, class... Others>
std::optional<AdapterNumber> AdapterOf(const First& first, const Others&...) {
  if constexpr (std::is_same_v<First, AdapterNumber>) {
    return first;
  } else {
    return std::nullopt;
  }
}

}  // namespace

bool Library::Load() {
  if (!tried_) {
    tried_ = true;
    if (auto scenario = loader_()) loaded_ = std::make_shared<Loaded>(std::move(*scenario));
  }
  return loaded_ != nullptr;
}

void Library::Change(const std::string& path, const std::string& value) {
  const std::lock_guard lock(mutex_);
  if (!Load()) throw ScenarioError("no scenario is played");
  loaded_->Follow();
  loaded_->Change(path, value);
}

void Library::SetTime(std::int64_t time) {
  const std::lock_guard lock(mutex_);
  if (Load()) loaded_->timeline.SetTime(time);
}

void Library::Loaded::Change(const std::string& path, const std::string& value) {
  if (machine.Change(path, value)) faults = FaultSchedule(machine.faults());
}

void Library::Loaded::Follow() {
  timeline.Follow(
      [this](const Scenario& scenario) {
        machine.Restart(scenario);
        faults = FaultSchedule(scenario.faults);
      },
      [this](const std::string& path, const std::string& value) { Change(path, value); });
  faults.MoveTo(timeline.time());
}

void Library::Play(Scenario scenario) {
  auto loaded = std::make_shared<Loaded>(std::move(scenario));
  const std::lock_guard lock(mutex_);
  tried_ = true;
  loaded_ = std::move(loaded);
}

template <class Call>
ApiStatus Library::Run(std::string_view operation, std::optional<AdapterNumber> adapter,
                       Call&& call) {
  std::shared_ptr<Loaded> loaded;
  {
    const std::lock_guard lock(mutex_);
    if (loaded_ == nullptr && !NeedsScenario(operation)) return kOk;
    if (!Load()) return kFailed;
    loaded = loaded_;
    loaded->Follow();
  }
  return RunWithFaults(mutex_, loaded->faults, operation, adapter,
                       [&] { return call(loaded->machine); });
}

#define QUARN_OPERATION(ordinal, name, parameters, arguments)             \
  ApiStatus Library::name parameters {                                    \
    return Run(#name, AdapterOf arguments,                                \
               [&](Machine& machine) { return machine.name arguments; }); \
  }
#include "adapterapi/operations.inc"
#undef QUARN_OPERATION

}  // namespace simulator
