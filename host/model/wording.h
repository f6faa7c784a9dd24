#pragma once
// Words of sentences about a machine.

#include <string>
#include <vector>

namespace host {

/// The first of some texts with commas between them, then how many more there are.
std::string Joined(const std::vector<std::string>& texts);
/// "1 network", "2 networks"
std::string Counted(std::size_t count, const std::string& singular);

}  // namespace host
