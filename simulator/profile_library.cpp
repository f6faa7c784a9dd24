#include "simulator/profile_library.h"

#include <algorithm>

#include "scenario/change.h"

namespace simulator {

void ProfileLibrary::Set(const Scenario& scenario) {
  scenario_.emplace();
  scenario_->profiles = scenario.profiles;
  scenario_->faults = scenario.faults;
  faults_.emplace(scenario.faults);
}

bool ProfileLibrary::Load() {
  if (!tried_) {
    tried_ = true;
    if (const auto scenario = loader_()) {
      Set(*scenario);
      timeline_.emplace(*scenario, Player::kProfileLibrary);
    }
  }
  return scenario_.has_value();
}

bool ProfileLibrary::Follow() {
  if (!Load()) return false;
  timeline_->Follow([this](const Scenario& scenario) { Set(scenario); },
                    [this](const std::string& path, const std::string& value) {
                      if (ChangeMember(path, value, nullptr, *scenario_)) {
                        faults_.emplace(scenario_->faults);
                      }
                    });
  faults_->MoveTo(timeline_->time());
  return true;
}

void ProfileLibrary::Change(const std::string& path, const std::string& value) {
  const std::lock_guard lock(mutex_);
  if (!Follow()) throw ScenarioError("no scenario is played");
  if (ChangeMember(path, value, nullptr, *scenario_)) faults_.emplace(scenario_->faults);
}

void ProfileLibrary::Play(const Scenario& scenario) {
  const std::lock_guard lock(mutex_);
  tried_ = true;
  Set(scenario);
  timeline_.emplace(scenario, Player::kProfileLibrary);
}

void ProfileLibrary::SetTime(std::int64_t time) {
  const std::lock_guard lock(mutex_);
  if (Load()) timeline_->SetTime(time);
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
