#pragma once
// A chart of the signals of networks by channel, as SVG in a page.

#include <string>
#include <vector>

#include "host/model/networks.h"
#include "host/report/html.h"

namespace host {

struct Bell {
  const Network* network;
  std::string id;  ///< connects the curve with a row of a table
};

/// Draws networks that have a channel and a signal: for each channel a bell curve of 20 MHz for
/// each of the strongest and an envelope for the others, as high as the signal; labels in the order
/// of strength; for each channel the number of networks and of those without a label. `id`
/// identifies the chart.
void DrawSignalChart(Html& html, Spectrum spectrum, const std::vector<Bell>& bells,
                     const std::string& id, const std::string& title);

}  // namespace host
