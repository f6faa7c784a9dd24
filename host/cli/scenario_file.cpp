#include "host/cli/scenario_file.h"

#include <filesystem>
#include <iostream>
#include <iterator>

#include "host/os/os.h"
#include "platform/environment.h"

namespace host {
namespace {

bool IsPipe(const std::string& path) {
  std::error_code unknown;
  return std::filesystem::exists(path, unknown) &&
         !std::filesystem::is_regular_file(path, unknown) &&
         !std::filesystem::is_directory(path, unknown);
}

}  // namespace

ScenarioFile::ScenarioFile(const Command& options) {
  if (const std::optional<std::string> named = options.Find("--scenario")) {
    name_ = *named;
    path_ = os::FileName(*named);
  } else {
    name_ = path_ = platform::EnvironmentText("WIFI_SCENARIO").value_or("");
  }
}

simulator::LoadedScenario ScenarioFile::Load(const std::optional<std::string>& other) {
  if (!other && kept_) return *kept_;
  const std::string name = other.value_or(name_);
  const std::string path = other ? os::FileName(*other) : path_;
  const bool isInput = path == "-";
  const bool once = isInput || IsPipe(path);
  simulator::LoadedScenario loaded;
  if (isInput) {
    const std::string text(std::istreambuf_iterator<char>(std::cin), {});
    loaded = simulator::ReadForHost(text, "standard input");
  } else {
    loaded = simulator::LoadForHost(path, name);
  }
  name_ = name;
  path_ = path;
  kept_.reset();
  if (once) kept_ = loaded;
  return loaded;
}

}  // namespace host
