#pragma once
// The positions of channels on the axis of a chart.

#include <utility>
#include <vector>

#include "host/model/networks.h"

namespace host {

/// A part of a spectrum, in MHz; gaps between segments are not shown.
struct Segment {
  int from;
  int to;
};
/// The segments that a chart shows; the last channel of 2.4 GHz only if it is used.
std::vector<Segment> SegmentsOf(Spectrum spectrum, bool hasLastChannel);
/// The channels whose numbers are shown below a chart, with their centres in MHz.
std::vector<std::pair<int, int>> ChannelTicks(Spectrum spectrum,
                                              const std::vector<Segment>& segments);

}  // namespace host
