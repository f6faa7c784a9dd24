#pragma once

#include <functional>
#include <string>
#include <vector>

#include "scenario/change.h"
#include "scenario/scenario.h"

namespace simulator {

/// Plays the part of a scenario's timeline that concerns one library. Not locked.
class TimelinePlayer {
 public:
  using Restart = std::function<void(const Scenario& scenario)>;
  using Change = std::function<void(const std::string& path, const std::string& value)>;

  TimelinePlayer(const Scenario& scenario, Player player);

  /// From now on the time stands still here, in milliseconds after the timeline's start, instead of
  /// following the system's clock.
  void SetTime(std::int64_t time) { set_ = time; }
  /// Brings a machine to the present moment, with all changes since the last call. `restart` makes
  /// it again as the scenario is. A change that does not fit the machine any more is left out, with
  /// a line on the debugger's output.
  void Follow(const Restart& restart, const Change& change);
  /// The moment to which the machine was brought last; it is 0 again where the timeline repeats.
  std::int64_t time() const { return time_; }

 private:
  std::int64_t Now() const;

  struct Ramp {
    std::size_t index;  ///< of its change
    std::string shown;  ///< the value that the machine has by it
  };

  Scenario scenario_;  ///< as it is at the start; empty if it never changes
  std::vector<Ramp> ramps_;
  std::optional<std::int64_t> set_;
  std::int64_t time_ = 0;
  std::int64_t round_ = 0;  ///< how often the timeline has repeated
  std::size_t next_ = 0;    ///< the first change that has not been made
};

}  // namespace simulator
