#pragma once

#include <functional>
#include <memory>
#include <mutex>

#include "platform/critical_section.h"
#include "simulator/faults.h"
#include "simulator/machine.h"

namespace simulator {

/// The adapter control library as one process sees it: a machine with its faults, read when first
/// needed. Safe to call from any thread.
class Library final : public AdapterApi {
 public:
  using Loader = std::function<std::optional<Scenario>()>;

  /// `loader` is called once; without a scenario every operation that needs one gives kFailed.
  explicit Library(Loader loader = &ScenarioOfEnvironment) : loader_(std::move(loader)) {}

  /// Changes a member of the machine, which is read if it was not yet. Throws ScenarioError.
  void Change(const std::string& path, const std::string& value);
  /// Plays another scenario from now on. Lists given out end.
  void Play(Scenario scenario);

#define QUARN_OPERATION(ordinal, name, parameters, arguments) ApiStatus name parameters override;
#include "adapterapi/operations.inc"
#undef QUARN_OPERATION

 private:
  struct Loaded {
    explicit Loaded(Scenario scenario)
        : faults(std::move(scenario.faults)), machine(std::move(scenario)) {}
    FaultSchedule faults;
    Machine machine;
  };

  /// Whether there is a machine; reads it at the first call. Under the lock.
  bool Load();
  template <class Call>
  ApiStatus Run(std::string_view operation, std::optional<AdapterNumber> adapter, Call&& call);

  const Loader loader_;
  platform::CriticalSection mutex_;
  bool tried_ = false;
  std::shared_ptr<Loaded> loaded_;
};

}  // namespace simulator
