#pragma once

#include <ostream>
#include <string>
#include <vector>

#include "host/cli/exit_status.h"

namespace host {

/// The whole program for these arguments. Success requires that the output could be written.
ExitStatus RunProgram(const std::vector<std::string>& arguments, std::ostream& output,
                      std::ostream& errors);

}  // namespace host
