#include "simulator/profile_library.h"

#include <algorithm>

#include "scenario/change.h"

namespace simulator {

bool ProfileLibrary::Load() {
  const std::lock_guard lock(mutex_);
  if (!tried_) {
    tried_ = true;
    scenario_ = loader_();
    if (scenario_) faults_.emplace(scenario_->faults);
  }
  return scenario_.has_value();
}

void ProfileLibrary::Change(const std::string& path, const std::string& value) {
  if (!Load()) throw ScenarioError("no scenario is played");
  const std::lock_guard lock(mutex_);
  if (ChangeMember(path, value, nullptr, *scenario_)) faults_.emplace(scenario_->faults);
}

void ProfileLibrary::Play(const Scenario& scenario) {
  const std::lock_guard lock(mutex_);
  tried_ = true;
  scenario_.emplace();
  scenario_->profiles = scenario.profiles;
  scenario_->faults = scenario.faults;
  faults_.emplace(scenario.faults);
}

const ProfileRecord* ProfileAt(const Scenario& scenario, std::uint32_t storeFlag,
                               std::size_t position) {
  for (std::size_t store = 0; store < scenario.profiles.size(); ++store) {
    const auto& profiles = scenario.profiles[store];
    if (storeFlag == 1u << store && position < profiles.size()) return &profiles[position];
  }
  return nullptr;
}

const ProfileRecord* ProfileNamed(const Scenario& scenario, std::string_view name) {
  for (const auto& profiles : scenario.profiles) {
    for (const ProfileRecord& profile : profiles) {
      const char* end = std::find(profile.name, std::end(profile.name), '\0');
      if (name == std::string_view(profile.name, static_cast<std::size_t>(end - profile.name))) {
        return &profile;
      }
    }
  }
  return nullptr;
}

}  // namespace simulator
