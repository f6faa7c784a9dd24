#pragma once
// Where channels lie on the axis of a chart.

#include <utility>
#include <vector>

#include "host/model/networks.h"

namespace host {

/// Where a spectrum lies, in MHz; the gap between segments is left out.
struct Segment {
  int from;
  int to;
};
/// The segments that a chart shows; the last channel of 2.4 GHz only where it is used.
std::vector<Segment> SegmentsOf(Spectrum spectrum, bool hasLastChannel);
/// The channels whose numbers are below a chart, with their centres in MHz.
std::vector<std::pair<int, int>> ChannelTicks(Spectrum spectrum,
                                              const std::vector<Segment>& segments);

}  // namespace host
