#include "host/cli/provider_host.h"

#include <algorithm>
#include <chrono>
#include <utility>

#include "host/format/visible_text.h"
#include "host/mof/product_schema.h"
#include "host/mof/registration.h"
#include "host/service/result_text.h"
#include "platform/environment.h"
#include "platform/os_version.h"
#include "platform/registry_key.h"
#include "scenario/change.h"
#include "scenario/member_paths.h"
#include "scenario/reported_adapters.h"
#include "scenario/scenario.h"
#include "scenario/simulator_hooks.h"

namespace host {
namespace {

constexpr const char* kTraceVariable = "WIFI_PROVIDER_TRACE";

/// Writes the scenario's feature settings to the place from which the provider reads them.
void ApplyFeatureValues(const simulator::PlatformObjects& objects) {
  if (!objects.featureKeyPresent) return;
  platform::RegistryKey key;
  if (key.Create(HKEY_LOCAL_MACHINE, OLESTR("SOFTWARE\\ORVEL\\Wireless\\GUIConfiguration")) != 0) {
    return;
  }
  if (objects.featureSet1) key.SetNumber(OLESTR("FeatureSet1"), *objects.featureSet1);
  if (objects.featureSet2) key.SetNumber(OLESTR("FeatureSet2"), *objects.featureSet2);
}

/// A hook of the simulated library with that name, which the provider has loaded; null if the
/// library is no simulator.
template <class Function>
Function FindHook(const char* library, const char* name) {
  const HMODULE module = os::LoadedModule(os::LibraryFile(library));
  const FARPROC found = module == nullptr ? nullptr : GetProcAddress(module, name);
  return reinterpret_cast<Function>(reinterpret_cast<void (*)()>(found));
}

template <class Function>
Function Hook(const char* library, const char* name) {
  const auto hook = FindHook<Function>(library, name);
  if (hook == nullptr) {
    throw ModuleError(std::string(library) +
                      " is no simulator: its machine cannot be changed here");
  }
  return hook;
}

constexpr const char* kLibraries[] = {"QuarnApi", "TolvaApi"};

/// Throws ModuleError unless both libraries are the simulator's.
void RequireSimulator() {
  for (const char* library : kLibraries) Hook<decltype(&SimulatorPlay)>(library, "SimulatorPlay");
}

/// Makes the simulated libraries play the scenario; other libraries are not affected.
void Play(const std::string& scenario) {
  for (const char* library : kLibraries) {
    const auto play = FindHook<decltype(&SimulatorPlay)>(library, "SimulatorPlay");
    char problem[1024];
    if (play != nullptr && play(scenario.data(), scenario.size(), problem, sizeof problem) == 0) {
      throw ModuleError(std::string(library) + " cannot play the " + problem);
    }
  }
}

/// Moves the time of the simulated libraries; other libraries are not affected.
void ShowTime(std::int64_t time) {
  for (const char* library : kLibraries) {
    const auto show = FindHook<decltype(&SimulatorTime)>(library, "SimulatorTime");
    char problem[1024];
    if (show != nullptr && show(time, problem, sizeof problem) == 0) {
      throw ModuleError(std::string(library) + ": " + problem);
    }
  }
}

std::int64_t SystemTime() {
  return std::chrono::floor<std::chrono::milliseconds>(
             std::chrono::system_clock::now().time_since_epoch())
      .count();
}

bool IsSimulator(const char* library) {
  return FindHook<decltype(&SimulatorPlay)>(library, "SimulatorPlay") != nullptr;
}

/// A library of the maker reports the machine's own adapters, of which the provider serves only
/// those that the platform also has. Reports the ones that are missing in the scenario's platform.
void WarnOfUnknownAdapters(const simulator::PlatformObjects& platform, std::ostream& errors) {
  const HMODULE library = os::LoadedModule(os::LibraryFile("QuarnApi"));
  const FARPROC found = library == nullptr
                            ? nullptr
                            : os::FunctionByOrdinal(library, simulator::kAdapterListOrdinal,
                                                    simulator::kAdapterListSymbol);
  if (found == nullptr) return;
  const auto getter =
      reinterpret_cast<simulator::AdapterListGetter>(reinterpret_cast<void (*)()>(found));
  for (const std::string& address : simulator::PresentAdapters(getter)) {
    const bool isKnown = std::ranges::any_of(platform.adapters, [&address](const auto& adapter) {
      return adapter.macAddress == address;
    });
    if (isKnown) continue;
    WriteError(errors, "QuarnApi reports the adapter " + address +
                           ", which the platform of the scenario does not have: it is not served; "
                           "give networkAdapters an entry with this macAddress");
  }
}

}  // namespace

void LoadNamedLibraries(const Command& options) {
  const std::optional<std::string> folder = options.Find("--libraries");
  if (!folder) return;
  try {
    LoadClosedLibraries(*folder);
  } catch (const ModuleError& error) {
    throw ModuleError(std::string("--libraries: ") + error.what());
  }
}

std::string ModulePath(const Command& options) {
  return options.Find("--module").value_or(os::DefaultModulePath());
}

ProviderModule ModuleByFile(const Command& options) {
  return ProviderModule(ModulePath(options));
}

bool UsesSimulator() {
  return std::ranges::any_of(kLibraries, IsSimulator);
}

ProviderHost::ProviderHost(const Repository& repository, const Command& options,
                           std::ostream& errors)
    : repository_(repository), errors_(errors), defects_([&errors](const std::string& sentence) {
        WriteError(errors, "provider defect: " + sentence);
      }) {
  if (options.Has("--trace")) {
    platform::SetEnvironmentText(
        kTraceVariable, SameIgnoringAsciiCase(options.Text("--trace"), "calls") ? "calls" : "1");
    debugOutput_.emplace();
  }
  if (os::ShowsEscapes(2)) progress_.emplace(errors);
  LoadNamedLibraries(options);
  const std::string classId =
      ProviderClassId(ParseMof(embedded::wifi_adapter_provider_mof(), "wifi_adapter_provider.mof"));
  module_.reset(options.Has("--registered")
                    ? new ProviderModule(ProviderModule::Registered(classId))
                    : new ProviderModule(ModuleByFile(options)));
  factory_ = module_->Factory(classId);
  localMachine_.emplace();
  if (const auto version = options.Find("--os-version")) {
    namedVersion_ = simulator::ParseOsVersion(*version);
  }
  if (const auto speed = options.Find("--speed")) {
    RequireSimulator();
    clock_ = MachineClock(std::stoi(*speed));
  }
  const platform::OsVersion own = platform::QueryOsVersion();
  ownVersion_ = {own.major, own.minor};
}

ExitStatus ProviderHost::Start(const simulator::LoadedScenario& scenario) {
  madeOf_ = scenario.platform.madeOf;
  isChanged_ = false;
  Play(scenario.text);
  const std::int64_t now = SystemTime();
  clockStart_ = scenario.start.value_or(now);
  clock_.Set(clock_.IsStopped() ? 0 : now - clockStart_);
  ShowTime(clock_.Now());
  scenarioText_ = scenario.text;
  const auto named = namedVersion_ ? namedVersion_ : scenario.platform.osVersion;
  if (named || osVersion_) {
    const simulator::OsVersion told = named.value_or(ownVersion_);
    platform::SetOsVersion(module_->handle(), told.major, told.minor);
  }
  osVersion_ = named;
  ApplyFeatureValues(scenario.platform);
  session_.emplace(repository_, scenario.platform, defects_);
  if (progress_) {
    session_->Watch([this](const std::string* request) {
      return request != nullptr ? progress_->BeginRequest(*request) : progress_->EndRequest();
    });
  }
  if (const HRESULT made = session_->Start(factory_.get()); FAILED(made)) {
    WriteError(errors_, "the provider cannot be made: " + DescribeResult(made));
    session_.reset();
    return kRefused;
  }
  if (!IsSimulated()) WarnOfUnknownAdapters(scenario.platform, errors_);
  if (session_->init_status() == S_OK) return kSuccess;
  WriteError(errors_,
             "the provider reports a failed start: " + DescribeResult(session_->init_status()));
  return kRefused;
}

ExitStatus ProviderHost::Restart(const simulator::LoadedScenario& scenario) {
  RequireSimulator();
  session_.reset();
  localMachine_.reset();
  localMachine_.emplace();
  return Start(scenario);
}

std::vector<std::string> ProviderHost::MembersFor(const std::string& typed) const {
  if (!IsSimulated()) return {};
  return simulator::MemberPaths(typed, simulator::ParseScenario(scenarioText_, "scenario"));
}

bool ProviderHost::IsSimulated() const {
  return IsSimulator("QuarnApi");
}

void ProviderHost::BeginCommand() {
  if (progress_) progress_->BeginCommand();
  ShowTime(clock_.Now());
}

void ProviderHost::Advance(std::int64_t milliseconds) {
  RequireSimulator();
  clock_.Set(clock_.Now() + milliseconds);
}

std::int64_t ProviderHost::Time() const {
  return IsSimulated() ? clockStart_ + clock_.Now() : SystemTime();
}

void ProviderHost::Wait(std::int64_t milliseconds) {
  clock_.Wait(milliseconds);
  ShowTime(clock_.Now());
}

void ProviderHost::SetMember(const std::string& path, const std::string& value) {
  for (const char* library : kLibraries) {
    const bool isOfAdapters = library == kLibraries[0];
    if (!simulator::Plays(
            isOfAdapters ? simulator::Player::kAdapterLibrary : simulator::Player::kProfileLibrary,
            path)) {
      continue;
    }
    char problem[2048];
    const auto set = Hook<decltype(&SimulatorSet)>(library, "SimulatorSet");
    if (set(path.c_str(), value.c_str(), problem, sizeof problem) == 0) {
      throw simulator::ScenarioError(problem);
    }
  }
  isChanged_ = true;
}

ExitStatus ProviderHost::Finish() {
  session_.reset();
  factory_.reset();
  module_->CheckUnloadable(defects_);
  return defects_.count() > 0 ? kDefective : kSuccess;
}

}  // namespace host
