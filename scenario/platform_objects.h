#pragma once
// The part of a scenario that the management service plays: what the platform knows of the machine.
// Texts are UTF-8.

#include <cstdint>
#include <optional>
#include <stdexcept>
#include <string>
#include <string_view>
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

/// The version of the platform's system, such as 6.1.
struct OsVersion {
  std::uint32_t major = 0;
  std::uint32_t minor = 0;
};
/// nullopt for a text of another form than "6.1".
std::optional<OsVersion> ParseOsVersion(std::string_view text);

/// What a scenario was made of, for people. Entries of `told` and `invented` are a class, or
/// "CLASS.PROPERTY", or either with " of KEY" for one adapter.
struct Provenance {
  std::string source;                 ///< "the dump customer.json"; empty for a scenario of its own
  std::vector<std::string> told;      ///< what the source told; empty if it told all
  std::vector<std::string> invented;  ///< what had to be made up in spite of that
};

struct PlatformObjects {
  std::optional<std::string> userName;  ///< UserName of Win32_ComputerSystem
  std::optional<OsVersion> osVersion;   ///< what the provider's version query returns
  std::vector<PlatformAdapter> adapters;
  Provenance madeOf;
  bool featureKeyPresent = true;  ///< whether the feature settings key exists
  std::optional<std::uint32_t> featureSet1;
  std::optional<std::uint32_t> featureSet2;
};

/// Says what is wrong in a scenario: the file, the line or the path of the value, and what was
/// expected.
class ScenarioError : public std::runtime_error {
 public:
  using std::runtime_error::runtime_error;
};

/// The parts of a scenario that a host keeps: its own, and the whole text for the simulated
/// libraries.
struct LoadedScenario {
  PlatformObjects platform;
  std::string text;
  std::optional<std::int64_t> start;  ///< of its timeline: milliseconds since 1970, UTC
};

/// Reads and checks a scenario file. Its path is UTF-8; an empty path means the scenario that is
/// compiled in. Throws ScenarioError.
LoadedScenario LoadForHost(const std::string& path);
/// The same for a text that has already been read.
LoadedScenario ReadForHost(std::string text, const std::string& name);

}  // namespace simulator
