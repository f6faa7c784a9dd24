#include <unistd.h>

#include "host/os/installation.h"

namespace host::os {

std::string FileVersion(const std::string&) {
  return "";
}

std::string MissingFunctions(const std::string&) {
  return "";
}

Signature SignatureOf(const std::string&) {
  return Signature::kUnknown;
}

bool IsAdministrator() {
  return geteuid() == 0;
}

}  // namespace host::os
