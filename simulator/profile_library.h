#pragma once

#include <functional>
#include <mutex>

#include "platform/critical_section.h"
#include "simulator/faults.h"
#include "simulator/timeline_player.h"

namespace simulator {

/// The profiles of a scenario for one process, read when first needed. Safe to call from any
/// thread.
class ProfileLibrary {
 public:
  using Loader = std::function<std::optional<Scenario>()>;

  explicit ProfileLibrary(Loader loader = &ScenarioOfEnvironment) : loader_(std::move(loader)) {}

  /// Changes a member of the profiles, or the faults. Throws ScenarioError.
  void Change(const std::string& path, const std::string& value);
  /// Plays another scenario from now on: its profiles, faults and timeline.
  void Play(const Scenario& scenario);
  /// From now on the time of the timeline stands still at `time`, in milliseconds.
  void SetTime(std::int64_t time);

  /// Runs an operation of the profile manager, with its fault if there is one. `call` gets the
  /// scenario; without a scenario the status is negative.
  template <class Call>
  std::int32_t Run(std::string_view operation, Call&& call) {
    {
      const std::lock_guard lock(mutex_);
      if (!Follow()) return kNoScenario;
    }
    return RunWithFaults(mutex_, *faults_, operation, std::nullopt,
                         [&] { return call(*scenario_); });
  }

 private:
  static constexpr std::int32_t kNoScenario = static_cast<std::int32_t>(0x80004005);

  // Call these with the lock held.
  bool Load();
  void Set(const Scenario& scenario);
  /// Loads the scenario and brings it to the present moment.
  bool Follow();

  const Loader loader_;
  platform::CriticalSection mutex_;
  bool tried_ = false;
  std::optional<Scenario> scenario_;
  std::optional<FaultSchedule> faults_;
  std::optional<TimelinePlayer> timeline_;
};

/// The profile at a position of a store; null past the end, or if no store has the flag.
const ProfileRecord* ProfileAt(const Scenario& scenario, std::uint32_t storeFlag,
                               std::size_t position);
/// The profile with that name, compared byte by byte, in any store; null if there is no such
/// profile.
const ProfileRecord* ProfileNamed(const Scenario& scenario, std::string_view name);

}  // namespace simulator
