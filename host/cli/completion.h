#pragma once

#include <functional>
#include <string>
#include <vector>

#include "host/os/os.h"
#include "host/service/repository.h"

namespace host {

/// Returns the object paths of a class's instances.
using PathSource = std::function<std::vector<std::string>(const std::string& className)>;

/// Returns the members of the simulated machine, with their values, that can complete the typed
/// text.
using MemberSource = std::function<std::vector<std::string>(const std::string& typed)>;

/// The completions of a shell's line from the word at the cursor on: commands first, then the
/// values that the command's row allows there, for the class that the line names. Letter case does
/// not matter. Texts that a terminal cannot show are left out.
os::LineEditor::Completion CompleteLine(const std::string& before, const Repository& repository,
                                        const PathSource& paths, const MemberSource& members);

}  // namespace host
