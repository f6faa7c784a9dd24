#pragma once
// Where a dump comes from, as far as it says.

#include <optional>
#include <string>
#include <unordered_set>

#include "host/model/dump.h"

namespace host {

enum class SourceKind { kUnknown, kScenario, kBuiltIn, kLibraries, kService };

/// The words of a dump for the kinds, in the order of the enumeration.
inline constexpr const char* kSourceKinds[] = {"unknown", "scenario", "built-in machine",
                                               "libraries", "service"};

struct Source {
  SourceKind kind = SourceKind::kUnknown;
  std::string name;      ///< name of the scenario file, the libraries' folder or the service
  std::string computer;  ///< name of the machine, from the management service
  std::optional<bool> isSimulated;
  bool isChanged = false;                    ///< the simulated machine, since it started
  std::string madeOf;                        ///< what the scenario was made of, with its name
  std::unordered_set<std::string> told;      ///< what that told; empty if it told all
  std::unordered_set<std::string> invented;  ///< what had to be made up in spite of that

  std::string version;  ///< of the program
  std::string osVersion;
  std::string libraryVersion;
  std::string time;                    ///< "2026-11-23T08:00:00Z"
  std::optional<HRESULT> startStatus;  ///< reported by the provider

  /// "scenario laptop.json", "computer ROOM-12"; empty if the dump does not say.
  std::string Title() const;
  /// What a reader has to know first: whether the machine is simulated, and the original of its
  /// scenario. Empty if the dump does not say.
  std::string Nature() const;
  /// Whether a value of a class was invented and not told by the machine that the scenario shows.
  /// Entries of `told` and `invented` are a class, "CLASS.PROPERTY" or, for one adapter,
  /// "CLASS.PROPERTY of KEY".
  bool IsInvented(const std::string& className, const std::string& property,
                  const std::string& adapter) const;
};

Source SourceOf(const Dump& dump);

}  // namespace host
