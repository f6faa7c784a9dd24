#include "simulator/timeline_player.h"

#include <chrono>
#include <cmath>

#include "platform/platform.h"

namespace simulator {
namespace {

std::int64_t SystemTime() {
  return std::chrono::floor<std::chrono::milliseconds>(
             std::chrono::system_clock::now().time_since_epoch())
      .count();
}

/// The number of a ramp, which ends at `end`, at a moment between its ends.
std::int64_t NumberAt(const TimelineChange::Ramp& ramp, std::int64_t end, std::int64_t time) {
  const double part = static_cast<double>(time - ramp.from) / static_cast<double>(end - ramp.from);
  return ramp.first + std::llround(part * static_cast<double>(ramp.last - ramp.first));
}

}  // namespace

TimelinePlayer::TimelinePlayer(const Scenario& scenario, Player player) {
  const auto& [start, repeat, changes] = scenario.timeline;
  if (changes.empty() && !repeat) {
    scenario_.timeline.start = start;
    return;
  }
  scenario_ = scenario;
  if (player == Player::kProfileLibrary) scenario_.adapters.clear();
  auto& played = scenario_.timeline.changes;
  std::erase_if(played,
                [player](const TimelineChange& change) { return !Plays(player, change.path); });
  for (std::size_t index = 0; index < played.size(); ++index) {
    if (played[index].ramp) ramps_.push_back({index, ""});
  }
}

std::int64_t TimelinePlayer::Now() const {
  if (set_) return *set_;
  return scenario_.timeline.start ? SystemTime() - *scenario_.timeline.start : 0;
}

void TimelinePlayer::Follow(const Restart& restart, const Change& change) {
  const auto& [start, repeat, changes] = scenario_.timeline;
  const std::int64_t now = Now();
  const std::int64_t round = repeat && now > 0 ? now / *repeat : 0;
  time_ = repeat && now > 0 ? now % *repeat : now;
  if (round != round_ || (next_ > 0 && changes[next_ - 1].at > time_)) {
    restart(scenario_);
    next_ = 0;
    for (Ramp& ramp : ramps_) ramp.shown.clear();
  }
  round_ = round;
  const auto make = [&change](const std::string& path, const std::string& value) {
    try {
      change(path, value);
    } catch (const ScenarioError& error) {
      OutputDebugStringA(("timeline: " + std::string(error.what()) + "\n").c_str());
    }
  };
  for (; next_ < changes.size() && changes[next_].at <= time_; ++next_) {
    make(changes[next_].path, changes[next_].value);
  }
  for (auto& [index, shown] : ramps_) {
    const TimelineChange& end = changes[index];
    if (index < next_ || end.ramp->from >= time_) continue;
    const std::string value = std::to_string(NumberAt(*end.ramp, end.at, time_));
    if (shown == value) continue;
    make(end.path, value);
    shown = value;
  }
}

}  // namespace simulator
