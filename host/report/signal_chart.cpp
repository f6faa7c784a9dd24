#include "host/report/signal_chart.h"

#include <algorithm>
#include <cmath>

#include "host/report/chart_labels.h"

namespace host {
namespace {

// All in the units of the picture, which is as wide as a page's text at its full width.
constexpr double kWidth = 960;
constexpr double kHeight = 356;
constexpr double kLeft = 44;
constexpr double kRight = 948;
constexpr double kTop = 12;
constexpr double kBottom = 312;
constexpr double kSegmentGap = 30;
constexpr double kLabelSize = 11.5;
constexpr double kLabelHeight = 14;
constexpr double kLabelLift = 5;    ///< of a label above its peak
constexpr double kLeaderFrom = 12;  ///< a label that moved farther gets a line
constexpr int kLabelColumns = 22;
constexpr int kSignalStep = 10;

/// Tenths are finer than any screen, and print alike everywhere.
std::string Number(double value) {
  const long tenths = std::lround(value * 10);
  const long rest = std::labs(tenths % 10);
  return (tenths < 0 ? "-" : "") + std::to_string(std::labs(tenths) / 10) +
         (rest == 0 ? "" : "." + std::to_string(rest));
}

class Axes {
 public:
  explicit Axes(std::vector<Segment> segments) : segments_(std::move(segments)) {
    int megahertz = 0;
    for (const Segment& segment : segments_) megahertz += segment.to - segment.from;
    const double gaps = kSegmentGap * static_cast<double>(segments_.size() - 1);
    scale_ = (kRight - kLeft - gaps) / megahertz;
  }

  const std::vector<Segment>& segments() const { return segments_; }
  double Width(int megahertz) const { return megahertz * scale_; }
  double X(int megahertz) const {
    double x = kLeft;
    for (const Segment& segment : segments_) {
      if (megahertz <= segment.to) return x + Width(megahertz - segment.from);
      x += Width(segment.to - segment.from) + kSegmentGap;
    }
    return kRight;
  }
  static double Y(int signal) {
    const int shown = std::clamp(signal, kLowestSignal, kHighestSignal);
    return kBottom - (kBottom - kTop) * (shown - kLowestSignal) / (kHighestSignal - kLowestSignal);
  }

 private:
  std::vector<Segment> segments_;
  double scale_ = 1;
};

void DrawAxes(Html& html, const Axes& axes, Spectrum spectrum) {
  html.Open("g", {{"class", "axes"}});
  for (int signal = kLowestSignal; signal <= kHighestSignal; signal += kSignalStep) {
    const std::string y = Number(Axes::Y(signal));
    for (const Segment& segment : axes.segments()) {
      html.Empty("line", {{"class", signal == kLowestSignal ? "base" : "grid"},
                          {"x1", Number(axes.X(segment.from))},
                          {"x2", Number(axes.X(segment.to))},
                          {"y1", y},
                          {"y2", y}});
    }
    html.Element("text",
                 {{"x", Number(kLeft - 8)}, {"y", Number(Axes::Y(signal) + 4)}, {"class", "scale"}},
                 std::to_string(signal));
  }
  html.NewLine();
  for (const auto& [channel, centre] : ChannelTicks(spectrum, axes.segments())) {
    const std::string x = Number(axes.X(centre));
    html.Empty("line", {{"class", "tick"},
                        {"x1", x},
                        {"x2", x},
                        {"y1", Number(kBottom)},
                        {"y2", Number(kBottom + 4)}});
    html.Element("text", {{"x", x}, {"y", Number(kBottom + 18)}, {"class", "channel"}},
                 std::to_string(channel));
  }
  html.Element("text", {{"x", Number(kLeft)}, {"y", Number(kHeight - 6)}, {"class", "unit"}},
               "Channel");
  html.Element("text", {{"x", Number(kLeft + 6)}, {"y", Number(kTop + 12)}, {"class", "unit"}},
               "dBm");
  html.Close().NewLine();
}

/// A bell that stands on the base line.
std::string BellPath(double x, double halfWidth, double y) {
  const auto point = [](double px, double py) { return Number(px) + " " + Number(py); };
  return "M" + point(x - halfWidth, kBottom) + "C" + point(x - halfWidth * 0.55, kBottom) + " " +
         point(x - halfWidth * 0.6, y) + " " + point(x, y) + "S" +
         point(x + halfWidth * 0.55, kBottom) + " " + point(x + halfWidth, kBottom);
}

std::string StyleOf(const Network& network) {
  std::string style = "bell";
  if (network.associated) style += " associated";
  if (network.protection == Protection::kOpen || network.protection == Protection::kWep) {
    style += " unprotected";
  }
  return style;
}

std::string LabelOf(const Network& network) {
  return Shortened(network.name.empty() ? "hidden" : network.name, kLabelColumns);
}

std::string Described(const Network& network) {
  return (network.name.empty() ? std::string("Hidden network") : network.name) + ", " +
         network.mac + ", channel " + std::to_string(*network.channel) + ", " +
         std::to_string(*network.signal) + " dBm" +
         (network.security.empty() ? "" : ", " + network.security) +
         (network.associated ? ", associated" : "");
}

void DrawLabels(Html& html, const Axes& axes, std::vector<Bell> bells) {
  std::ranges::stable_sort(bells, [](const Bell& left, const Bell& right) {
    return left.network->associated > right.network->associated;
  });
  std::vector<Box> wishes;
  for (const Bell& bell : bells) {
    const double width = EstimatedTextWidth(LabelOf(*bell.network)) * kLabelSize;
    wishes.push_back({axes.X(*bell.network->centre) - width / 2,
                      Axes::Y(*bell.network->signal) - kLabelLift - kLabelHeight, width,
                      kLabelHeight});
  }
  const std::vector<std::optional<Box>> places =
      PlaceLabels(wishes, {kLeft + 34, 0, kRight - kLeft - 34, kBottom - 2});
  html.Open("g", {{"class", "labels"}});
  for (std::size_t index = 0; index < bells.size(); ++index) {
    const std::optional<Box>& box = places[index];
    if (!box) continue;
    const Network& network = *bells[index].network;
    const double x = axes.X(*network.centre);
    const double y = Axes::Y(*network.signal);
    const double middle = box->left + box->width / 2;
    html.Open("g", {{"class", StyleOf(network)}, {"data-network", bells[index].id}});
    if (std::abs(box->top - wishes[index].top) > kLeaderFrom) {
      const bool isAbove = box->top < y;
      html.Empty("line", {{"class", "leader"},
                          {"x1", Number(middle)},
                          {"x2", Number(x)},
                          {"y1", Number(isAbove ? box->top + kLabelHeight : box->top)},
                          {"y2", Number(y)}});
    }
    html.Empty("circle", {{"class", "peak"},
                          {"cx", Number(x)},
                          {"cy", Number(y)},
                          {"r", network.associated ? "4" : "2"}});
    html.Element("text", {{"x", Number(middle)}, {"y", Number(box->top + kLabelHeight - 3.5)}},
                 LabelOf(network));
    html.Close().NewLine();
  }
  html.Close();
}

}  // namespace

std::vector<Segment> SegmentsOf(Spectrum spectrum, const std::vector<const Network*>& networks) {
  if (spectrum == Spectrum::k5GHz) return {{5150, 5350}, {5480, 5905}};
  const bool hasLast =
      std::ranges::any_of(networks, [](const Network* network) { return network->channel == 14; });
  return {{2397, hasLast ? 2499 : 2487}};
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

void DrawSignalChart(Html& html, Spectrum spectrum, const std::vector<Bell>& bells,
                     const std::string& id, const std::string& title) {
  std::vector<Bell> drawn;
  std::vector<const Network*> networks;
  for (const Bell& bell : bells) {
    if (!bell.network->centre || !bell.network->signal) continue;
    drawn.push_back(bell);
    networks.push_back(bell.network);
  }
  // The strongest at the back, so that a pointer reaches every one; its own network before all.
  std::ranges::stable_sort(drawn, [](const Bell& left, const Bell& right) {
    if (left.network->associated != right.network->associated) return right.network->associated;
    return *left.network->signal > *right.network->signal;
  });
  const Axes axes(SegmentsOf(spectrum, networks));
  html.Open("svg", {{"viewBox", "0 0 " + Number(kWidth) + " " + Number(kHeight)},
                    {"role", "img"},
                    {"aria-labelledby", id}});
  html.Element("title", {{"id", id}}, title);
  html.NewLine();
  DrawAxes(html, axes, spectrum);
  html.Open("g", {{"class", "bells"}});
  for (const Bell& bell : drawn) {
    html.Open("path", {{"class", StyleOf(*bell.network)},
                       {"data-network", bell.id},
                       {"d", BellPath(axes.X(*bell.network->centre), axes.Width(kChannelWidth) / 2,
                                      Axes::Y(*bell.network->signal))}});
    html.Element("title", {}, Described(*bell.network)).Close().NewLine();
  }
  html.Close();
  DrawLabels(html, axes, drawn);
  html.Close().NewLine();
}

}  // namespace host
