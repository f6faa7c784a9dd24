#pragma once

#include <string>
#include <vector>

#include "host/service/repository.h"
#include "host/service/value.h"

namespace host {

/// Whether the instances of a class have a channel and a signal, which a chart needs.
bool CanChart(const ClassInfo& info);

/// The signal of networks by their channel, drawn with block characters in at most `width` columns:
/// a chart for each adapter and band, below it the names that its letters stand for. Networks
/// without a place on a chart are listed last. `rows` are instances of a class that CanChart.
std::string ChartText(const Json& rows, int width);

}  // namespace host
