#include "host/cli/scenario_file.h"

#include <filesystem>
#include <iostream>
#include <iterator>

#include "platform/environment.h"
#include "scenario/from_iw.h"
#include "scenario/text_file.h"

namespace host {
namespace {

bool IsPipe(const std::string& file) {
  const std::filesystem::path path = simulator::FilePath(file);
  std::error_code unknown;
  return std::filesystem::exists(path, unknown) &&
         !std::filesystem::is_regular_file(path, unknown) &&
         !std::filesystem::is_directory(path, unknown);
}

}  // namespace

ScenarioFile::ScenarioFile(const Command& options)
    : path_(options.Has("--scenario") ? options.Text("--scenario")
                                      : platform::EnvironmentText("WIFI_SCENARIO").value_or("")) {}

simulator::LoadedScenario ScenarioFile::Load(const std::optional<std::string>& other) {
  if (!other && kept_) return *kept_;
  const std::string path = other.value_or(path_);
  const bool isInput = path == "-";
  const bool once = isInput || IsPipe(path);
  simulator::LoadedScenario loaded;
  if (isInput) {
    loaded = simulator::ReadForHost(std::string(std::istreambuf_iterator<char>(std::cin), {}),
                                    "standard input");
  } else {
    loaded = simulator::LoadForHost(path);
  }
  path_ = path;
  kept_.reset();
  if (once) kept_.emplace(loaded);
  return loaded;
}

std::string ScenarioFile::FileName() const {
  return path_ == "-" ? "standard input" : simulator::FileNameOf(path_);
}

}  // namespace host
