#pragma once

#include <string>
#include <string_view>
#include <vector>

namespace host {

/// The name that was probably meant by `word`: few letters differ, and letter case does not matter.
/// Empty if no name is near.
std::string Nearest(std::string_view word, const std::vector<std::string>& names);

/// " (did you mean NAME?)", empty if no name is near.
std::string DidYouMean(std::string_view word, const std::vector<std::string>& names);

}  // namespace host
