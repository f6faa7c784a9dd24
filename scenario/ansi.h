#pragma once

#include <optional>
#include <string>
#include <string_view>

namespace simulator {

/// The code page 1252 form of a UTF-8 text; nullopt if the page lacks one of its characters.
std::optional<std::string> AnsiFromUtf8(std::string_view utf8);

}  // namespace simulator
