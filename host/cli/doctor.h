#pragma once
// What may be wrong with an installation, and what to do about it.

#include <string>
#include <vector>

#include "host/cli/command.h"
#include "host/cli/service_client.h"
#include "host/service/repository.h"

namespace host {

enum class Severity { kGood, kNote, kProblem, kUnknown };

struct Diagnosis {
  const char* part;  ///< of the installation: "module"
  Severity severity = Severity::kGood;
  std::string found;
  std::string advice = {};  ///< empty if there is nothing to do
};

/// The module's file, its registration, the closed libraries and the user's rights on this machine.
std::vector<Diagnosis> DiagnoseModule(const Command& options, const std::string& classId);

/// The schema and the registrations in the service's repository, and what the service answers.
/// `schema` is the product's, `repository` its classes.
std::vector<Diagnosis> DiagnoseService(const ServiceClient& service, const Schema& schema,
                                       const Repository& repository);
/// The limits of the processes in which the service runs providers. `service` is connected to the
/// namespace root.
Diagnosis DiagnoseQuota(const ServiceClient& service);

}  // namespace host
