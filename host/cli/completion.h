#pragma once

#include <functional>
#include <string>
#include <vector>

#include "host/os/os.h"
#include "host/service/repository.h"

namespace host {

/// Gives the object paths of a class's instances.
using PathSource = std::function<std::vector<std::string>(const std::string& className)>;

/// What may stand in a shell's line from the word at the cursor on: commands first, then what the
/// command's row takes in that place, of the class that the line names. Letters count in any case.
os::LineEditor::Completion CompleteLine(const std::string& before, const Repository& repository,
                                        const PathSource& paths);

}  // namespace host
