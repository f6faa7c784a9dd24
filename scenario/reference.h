#pragma once

#include <string>

namespace simulator {

/// The rows of every table of fields.h as Markdown, with the defaults: the reference for scenarios.
std::string DescribeTables();

}  // namespace simulator
