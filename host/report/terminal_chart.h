#pragma once

#include <string>
#include <vector>

#include "host/service/repository.h"
#include "host/service/value.h"

namespace host {

/// Whether the instances of a class have a channel and a signal, as a chart requires.
bool CanChart(const ClassInfo& info);

/// The signals of networks by channel, drawn with block characters in at most `width` columns: a
/// chart for each adapter and band; below it the networks of its letters, the strongest first, then
/// the number of further ones, then those without a place on it. `rows` are instances of a class
/// for which CanChart is true.
std::string ChartText(const Json& rows, int width);

}  // namespace host
