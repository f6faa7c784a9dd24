#include "host/report/spectrum_axis.h"

namespace host {

std::vector<Segment> SegmentsOf(Spectrum spectrum, bool hasLastChannel) {
  if (spectrum == Spectrum::k5GHz) return {{5150, 5350}, {5480, 5905}};
  return {{2397, hasLastChannel ? 2499 : 2487}};
}

std::vector<std::pair<int, int>> ChannelTicks(Spectrum spectrum,
                                              const std::vector<Segment>& segments) {
  std::vector<std::pair<int, int>> ticks;
  const auto add = [&](int first, int last, int step) {
    for (int channel = first; channel <= last; channel += step) {
      ticks.emplace_back(channel,
                         spectrum == Spectrum::k5GHz ? 5000 + 5 * channel : 2407 + 5 * channel);
    }
  };
  if (spectrum == Spectrum::k5GHz) {
    add(36, 64, 4);
    add(100, 144, 4);
    add(149, 177, 4);
  } else {
    add(1, 13, 1);
    if (segments.back().to > 2487) ticks.emplace_back(14, 2484);
  }
  return ticks;
}

}  // namespace host
