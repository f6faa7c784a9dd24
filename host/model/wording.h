#pragma once
// Parts of sentences about a machine.

#include <string>
#include <vector>

namespace host {

/// The first few texts, separated by commas, then the number of further ones.
std::string Joined(const std::vector<std::string>& texts);
/// "1 network", "2 networks"
std::string Counted(std::size_t count, const std::string& singular);

}  // namespace host
