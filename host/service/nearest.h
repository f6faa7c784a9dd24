#pragma once

#include <string>
#include <string_view>
#include <vector>

namespace host {

/// The name that somebody probably meant who typed `word`: few letters differ, and their case does
/// not count. Empty if none is near.
std::string Nearest(std::string_view word, const std::vector<std::string>& names);

/// " (did you mean NAME?)", nothing if none is near.
std::string DidYouMean(std::string_view word, const std::vector<std::string>& names);

}  // namespace host
