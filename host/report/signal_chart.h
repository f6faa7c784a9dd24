#pragma once
// A chart of the signal of networks by their channel, as SVG within a page.

#include <string>
#include <vector>

#include "host/model/networks.h"
#include "host/report/html.h"

namespace host {

struct Bell {
  const Network* network;
  std::string id;  ///< ties the bell to a row of a table
};

/// Draws networks that have a place and a signal: a bell of 20 MHz for each of the strongest of a
/// channel and an envelope for the others, as high as the signal; labels in the order of strength,
/// and for each channel how many networks there are and how many have no label. `id` is the
/// chart's own.
void DrawSignalChart(Html& html, Spectrum spectrum, const std::vector<Bell>& bells,
                     const std::string& id, const std::string& title);

}  // namespace host
