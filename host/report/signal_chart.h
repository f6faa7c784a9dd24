#pragma once
// A chart of the signal of networks by their channel, as SVG within a page.

#include <string>
#include <vector>

#include "host/report/html.h"
#include "host/report/networks.h"

namespace host {

/// Where a spectrum lies, in MHz; the gap between segments is left out.
struct Segment {
  int from;
  int to;
};
/// The segments that a chart of these networks shows, all of one spectrum.
std::vector<Segment> SegmentsOf(Spectrum spectrum, const std::vector<const Network*>& networks);
/// The channels whose numbers stand below a chart, with their centres in MHz.
std::vector<std::pair<int, int>> ChannelTicks(Spectrum spectrum,
                                              const std::vector<Segment>& segments);

/// Signals of a chart, in dBm; what lies outside is drawn at its edge.
inline constexpr int kLowestSignal = -100;
inline constexpr int kHighestSignal = -30;

struct Bell {
  const Network* network;
  std::string id;  ///< ties the bell to a row of a table
};

/// One bell of 20 MHz for each network, as high as its signal; networks without a signal or a place
/// are left out. `id` is the chart's own.
void DrawSignalChart(Html& html, Spectrum spectrum, const std::vector<Bell>& bells,
                     const std::string& id, const std::string& title);

}  // namespace host
