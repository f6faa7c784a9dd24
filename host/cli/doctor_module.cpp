#include <filesystem>

#include "host/cli/doctor.h"
#include "host/cli/help.h"
#include "host/cli/provider_host.h"
#include "host/os/installation.h"
#include "scenario/text_file.h"

namespace host {
namespace {

constexpr const char* kRepair = "Repair with the installer.";

bool IsFile(const std::string& path) {
  std::error_code unknown;
  return std::filesystem::is_regular_file(simulator::FilePath(path), unknown);
}

Diagnosis DiagnoseFile(const std::string& path) {
  constexpr const char* kPart = "module";
  if (!IsFile(path)) return {kPart, Severity::kProblem, path + " is not there.", kRepair};
  const std::string version = os::FileVersion(path);
  if (version.empty()) return {kPart, Severity::kGood, path + " is there."};
  const std::string found = path + " has version " + version + ".";
  if (version == kProgramVersion) return {kPart, Severity::kGood, found};
  return {kPart, Severity::kProblem, found + " This program has " + kProgramVersion + ".", kRepair};
}

Diagnosis DiagnoseSignature(const std::string& path) {
  constexpr const char* kPart = "signature";
  switch (os::SignatureOf(path)) {
    case os::Signature::kValid:
      return {kPart, Severity::kGood, "The module is signed."};
    case os::Signature::kNone:
      return {kPart, Severity::kNote, "The module is not signed.",
              "Compare it with the SHA-256 sum of the release."};
    case os::Signature::kRefused:
      return {kPart, Severity::kProblem,
              "The module is signed, but the system does not accept the signature.",
              "Install the certificate of the signer, or repair with the installer."};
    case os::Signature::kUnknown:
      break;
  }
  return {kPart, Severity::kUnknown, "The system cannot tell."};
}

Diagnosis DiagnoseRegistration(const Command& options, const std::string& module,
                               const std::string& classId) {
  constexpr const char* kPart = "registration";
  if (!os::HasComRegistration() && !options.Has("--registry")) {
    return {kPart, Severity::kUnknown, "This system keeps no registry.",
            "Name a file with --registry."};
  }
  const std::optional<std::string> registered = ProviderModule::RegisteredPath(classId);
  if (!registered) {
    return {kPart, Severity::kProblem, "The module is not registered.",
            "Repair with the installer, or: regsvr32 " + module};
  }
  if (!IsFile(*registered)) {
    return {kPart, Severity::kProblem, "It names " + *registered + ", which is not there.",
            "Repair with the installer, or: regsvr32 " + module};
  }
  std::error_code unknown;
  const std::string found = "It names " + *registered + ".";
  if (std::filesystem::equivalent(simulator::FilePath(*registered), simulator::FilePath(module),
                                  unknown)) {
    return {kPart, Severity::kGood, found};
  }
  return {kPart, Severity::kProblem, found + " This program belongs to " + module + ".",
          "Remove one of the two installations, then repair the other."};
}

Diagnosis DiagnoseLibraries(const Command& options, const std::string& module,
                            const std::string& classId) {
  constexpr const char* kPart = "libraries";
  if (!IsFile(module)) {
    return {kPart, Severity::kUnknown, "Only the module can tell.", "Mend the module first."};
  }
  const char* const advice =
      "Install the adapter's driver package, which brings QuarnApi and TolvaApi.";
  const std::string missing = os::MissingFunctions(module);
  if (!missing.empty()) return {kPart, Severity::kProblem, missing + ".", advice};
  try {
    LoadNamedLibraries(options);
    const ProviderModule loaded(module);
    loaded.Factory(classId);
    if (!UsesSimulator()) {
      return {kPart, Severity::kGood, "QuarnApi and TolvaApi have all operations."};
    }
    return {kPart, Severity::kNote, "QuarnApi or TolvaApi is simulated.",
            "On a machine with an adapter delete the simulated libraries."};
  } catch (const ModuleError& error) {
    return {kPart, Severity::kProblem, error.what() + std::string("."), advice};
  }
}

Diagnosis DiagnoseRights() {
  constexpr const char* kPart = "rights";
  if (os::IsAdministrator()) return {kPart, Severity::kGood, "You are an administrator."};
  return {kPart, Severity::kNote, "You are no administrator: the driver may refuse changes.",
          "To change something, start the console as administrator."};
}

}  // namespace

std::vector<Diagnosis> DiagnoseModule(const Command& options, const std::string& classId) {
  const std::string module = ModulePath(options);
  return {DiagnoseFile(module), DiagnoseSignature(module),
          DiagnoseRegistration(options, module, classId),
          DiagnoseLibraries(options, module, classId), DiagnoseRights()};
}

}  // namespace host
