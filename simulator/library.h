#pragma once

#include <functional>
#include <memory>
#include <mutex>

#include "platform/critical_section.h"
#include "simulator/faults.h"
#include "simulator/machine.h"
#include "simulator/timeline_player.h"

namespace simulator {

/// The adapter control library for one process: a machine with its faults, read when first needed.
/// Safe to call from any thread.
class Library final : public AdapterApi {
 public:
  using Loader = std::function<std::optional<Scenario>()>;

  /// `loader` is called once; without a scenario every operation that needs one returns kFailed.
  explicit Library(Loader loader = &ScenarioOfEnvironment) : loader_(std::move(loader)) {}

  /// Changes a member of the machine, which is read first if necessary. If it is one of the faults,
  /// the call counters of all faults are reset. Throws ScenarioError.
  void Change(const std::string& path, const std::string& value);
  /// Plays another scenario from now on. Lists returned before become invalid.
  void Play(Scenario scenario);
  /// From now on the time of the timeline stands still at `time`, in milliseconds.
  void SetTime(std::int64_t time);

#define QUARN_OPERATION(ordinal, name, parameters, arguments) ApiStatus name parameters override;
#include "adapterapi/operations.inc"
#undef QUARN_OPERATION

 private:
  struct Loaded {
    explicit Loaded(Scenario scenario)
        : timeline(scenario, Player::kAdapterLibrary),
          faults(scenario.faults),
          machine(std::move(scenario)) {}
    void Change(const std::string& path, const std::string& value);
    /// Brings machine and faults to the present moment.
    void Follow();

    TimelinePlayer timeline;
    FaultSchedule faults;
    Machine machine;
  };

  /// Whether there is a machine; the first call reads it. Call it with the lock held.
  bool Load();
  template <class Call>
  ApiStatus Run(std::string_view operation, std::optional<AdapterNumber> adapter, Call&& call);

  const Loader loader_;
  platform::CriticalSection mutex_;
  bool tried_ = false;
  std::shared_ptr<Loaded> loaded_;
};

}  // namespace simulator
