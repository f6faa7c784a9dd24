#pragma once

#include <string>
#include <vector>

#include "host/service/repository.h"
#include "host/service/value.h"

namespace host {

/// Whether the instances of a class have a channel and a signal, which a chart needs.
bool CanChart(const ClassInfo& info);

/// The signal of networks by their channel, drawn with block characters in at most `width` columns:
/// a chart for each adapter and band, below it the networks that its letters stand for, the
/// strongest first, then how many more there are, then those without a place on it. `rows` are
/// instances of a class that CanChart.
std::string ChartText(const Json& rows, int width);

}  // namespace host
