#pragma once

#include <string>
#include <string_view>
#include <vector>

namespace simulator {

struct ScenarioOfCapture {
  std::string json;                  ///< a scenario, indented by two blanks, with a final line feed
  std::vector<std::string> remarks;  ///< a line for each network that is left out
};

/// The name of a file without its folders: all that a scenario tells of where its source was.
std::string FileNameOf(const std::string& path);

/// Makes a scenario of one adapter that sees the networks of a capture, the text that
/// `iw dev <interface> scan` prints. `source` names the capture in remarks and errors. Throws
/// ScenarioError.
ScenarioOfCapture ScenarioFromIw(std::string_view capture, const std::string& source);

}  // namespace simulator
