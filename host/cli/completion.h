#pragma once

#include <functional>
#include <string>
#include <vector>

#include "host/os/os.h"
#include "host/service/repository.h"

namespace host {

/// Returns the object paths of a class's instances.
using PathSource = std::function<std::vector<std::string>(const std::string& className)>;

/// The completions of a shell's line from the word at the cursor on: commands first, then the
/// values that the command's row allows there, for the class that the line names. Letter case does
/// not matter.
os::LineEditor::Completion CompleteLine(const std::string& before, const Repository& repository,
                                        const PathSource& paths);

}  // namespace host
