#pragma once
// The part of a scenario that the management service plays: what the platform itself knows of the
// machine. Texts are UTF-8.

#include <cstdint>
#include <optional>
#include <stdexcept>
#include <string>
#include <vector>

namespace simulator {

/// One Win32_NetworkAdapter object; a missing text is a NULL property.
struct PlatformAdapter {
  std::optional<std::string> deviceId;
  std::optional<std::string> pnpDeviceId;
  std::optional<std::string> macAddress;
  std::optional<std::string> caption;
  std::optional<std::string> description;
};

struct PlatformObjects {
  std::optional<std::string> userName;  ///< UserName of Win32_ComputerSystem
  std::vector<PlatformAdapter> adapters;
  bool featureKeyPresent = true;  ///< whether the feature settings key exists
  std::optional<std::uint32_t> featureSet1;
  std::optional<std::uint32_t> featureSet2;
};

/// Says what is wrong in a scenario: the file, the line or the path of the value, what was
/// expected.
class ScenarioError : public std::runtime_error {
 public:
  using std::runtime_error::runtime_error;
};

/// Reads and checks a whole scenario and gives the platform's part of it; an empty path means the
/// scenario that is compiled in. `name` stands for the file in errors, where its path does not.
/// Throws ScenarioError.
PlatformObjects LoadPlatformObjects(const std::string& path, const std::string& name = {});

}  // namespace simulator
