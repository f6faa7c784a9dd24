#include "host/cli/scenario_file.h"

#include <cstdio>
#include <filesystem>
#include <fstream>
#include <iostream>
#include <iterator>

#include "host/os/os.h"
#include "platform/environment.h"
#include "scenario/text_file.h"

namespace host {
namespace {

constexpr const char* kVariable = "WIFI_SCENARIO";

bool IsPipe(const std::string& path) {
  std::error_code unknown;
  return std::filesystem::exists(path, unknown) &&
         !std::filesystem::is_regular_file(path, unknown) &&
         !std::filesystem::is_directory(path, unknown);
}

}  // namespace

ScenarioFile::ScenarioFile(const Command& options) {
  if (const std::optional<std::string> named = options.Find("--scenario")) {
    Use(*named);
  } else {
    path_ = platform::EnvironmentText(kVariable).value_or("");
  }
}

void ScenarioFile::Use(const std::string& named) {
  std::string path = os::FileName(named);
  const std::string name = named == "-" ? "standard input" : named;
  if (named == "-" || IsPipe(path)) {
    const std::string text = named == "-"
                                 ? std::string(std::istreambuf_iterator<char>(std::cin), {})
                                 : simulator::ReadTextFile(path, name);
    if (temporary_.empty()) temporary_ = os::TemporaryPath();
    path = temporary_;
    if (std::ofstream file(temporary_, std::ios::binary); !(file << text << std::flush)) {
      throw simulator::FileError(name + ": no copy of it can be kept in " + temporary_);
    }
  }
  path_ = path;
  name_ = name;
  os::SetEnvironment(kVariable, path_);
}

ScenarioFile::~ScenarioFile() {
  if (!temporary_.empty()) std::remove(temporary_.c_str());
}

simulator::PlatformObjects ScenarioFile::Load(const std::optional<std::string>& other) {
  if (!other) return simulator::LoadPlatformObjects(path_, name_);
  simulator::PlatformObjects objects = simulator::LoadPlatformObjects(os::FileName(*other), *other);
  Use(*other);
  return objects;
}

}  // namespace host
