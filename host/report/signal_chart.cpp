#include "host/report/signal_chart.h"

#include <algorithm>
#include <cmath>
#include <map>

#include "host/model/wording.h"
#include "host/report/chart_labels.h"
#include "host/report/signal_scale.h"
#include "host/report/spectrum_axis.h"

namespace host {
namespace {

// All in units of the picture, which at full width is as wide as the page's text.
constexpr double kWidth = 960;
constexpr double kHeight = 356;
constexpr double kLeft = 44;
constexpr double kRight = 948;
constexpr double kTop = 18;
constexpr double kBottom = 312;
constexpr double kSegmentGap = 30;
constexpr double kLabelSize = 11.5;
constexpr double kLabelHeight = 14;
constexpr double kLabelLift = 5;      ///< distance of a label from its peak
constexpr double kLeaderFrom = 12;    ///< a label that moved farther gets a leader line
constexpr double kCountsHeight = 16;  ///< kept free of labels above the base
constexpr double kCountWidth = 24;
constexpr int kLabelColumns = 22;
/// This many networks of a channel have curves of their own; an envelope shows the others.
constexpr std::size_t kOwnBells = 8;
/// From this number on curves are drawn fainter, so that those behind remain visible.
constexpr std::size_t kDense = 24;

/// Tenths are finer than any screen, and the same on every system.
std::string Number(double value) {
  const long tenths = std::lround(value * 10);
  const long rest = std::labs(tenths % 10);
  return (tenths < 0 ? "-" : "") + std::to_string(std::labs(tenths) / 10) +
         (rest == 0 ? "" : "." + std::to_string(rest));
}

class Axes {
 public:
  Axes(std::vector<Segment> segments, const SignalScale& scale)
      : segments_(std::move(segments)), signals_(scale) {
    int megahertz = 0;
    for (const Segment& segment : segments_) megahertz += segment.to - segment.from;
    const double gaps = kSegmentGap * static_cast<double>(segments_.size() - 1);
    scale_ = (kRight - kLeft - gaps) / megahertz;
  }

  const std::vector<Segment>& segments() const { return segments_; }
  const SignalScale& signals() const { return signals_; }
  double Width(int megahertz) const { return megahertz * scale_; }
  double X(int megahertz) const {
    double x = kLeft;
    for (const Segment& segment : segments_) {
      if (megahertz <= segment.to) return x + Width(megahertz - segment.from);
      x += Width(segment.to - segment.from) + kSegmentGap;
    }
    return kRight;
  }
  double Y(int signal) const {
    return kBottom - (kBottom - kTop) * signals_.Above(signal) / signals_.span();
  }

 private:
  std::vector<Segment> segments_;
  SignalScale signals_;
  double scale_ = 1;
};

/// The networks of one channel, the strongest first.
struct Channel {
  std::vector<const Bell*> bells;
  std::size_t labels = 0;  ///< how many of them have a label

  std::size_t own() const { return std::min(bells.size(), kOwnBells); }
};
using Channels = std::map<int, Channel>;  // by centre

bool IsStronger(const Bell* left, const Bell* right) {
  return *left->network->signal > *right->network->signal;
}

Channels ChannelsOf(const std::vector<Bell>& bells) {
  Channels channels;
  for (const Bell& bell : bells) channels[*bell.network->centre].bells.push_back(&bell);
  for (auto& [centre, channel] : channels) {
    std::ranges::stable_sort(channel.bells, IsStronger);
    // The associated network has a curve however weak it is.
    const auto own = std::ranges::find_if(
        channel.bells, [](const Bell* bell) { return bell->network->associated; });
    if (own != channel.bells.end() && own - channel.bells.begin() >= std::ptrdiff_t{kOwnBells}) {
      std::rotate(channel.bells.begin() + kOwnBells - 1, own, own + 1);
    }
  }
  return channels;
}

void DrawText(Html& html, const char* style, double x, double y, const std::string& text) {
  html.Element("text", {{"class", style}, {"x", Number(x)}, {"y", Number(y)}}, text);
}

void DrawAxes(Html& html, const Axes& axes, Spectrum spectrum) {
  html.Open("g", {{"class", "axes"}});
  const SignalScale& signals = axes.signals();
  for (int signal = signals.lowest(); signal <= signals.highest(); signal += SignalScale::kStep) {
    const std::string y = Number(axes.Y(signal));
    for (const Segment& segment : axes.segments()) {
      html.Empty("line", {{"class", signal == signals.lowest() ? "base" : "grid"},
                          {"x1", Number(axes.X(segment.from))},
                          {"x2", Number(axes.X(segment.to))},
                          {"y1", y},
                          {"y2", y}});
    }
    DrawText(html, "scale", kLeft - 8, axes.Y(signal) + 4, std::to_string(signal));
  }
  html.NewLine();
  for (const auto& [channel, centre] : ChannelTicks(spectrum, axes.segments())) {
    const std::string x = Number(axes.X(centre));
    html.Empty("line", {{"class", "tick"},
                        {"x1", x},
                        {"x2", x},
                        {"y1", Number(kBottom)},
                        {"y2", Number(kBottom + 4)}});
    DrawText(html, "channel", axes.X(centre), kBottom + 18, std::to_string(channel));
  }
  DrawText(html, "unit", 0, kBottom + 18, "Channel");
  DrawText(html, "unit", 0, kBottom + 36, "Networks");
  DrawText(html, "unit", kLeft + 6, kTop + 12, "dBm");
  html.Close().NewLine();
}

/// A bell curve on the base line.
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

/// A label names the signal if it is beyond the scale.
std::string LabelOf(const Network& network, const SignalScale& signals) {
  const std::string name = Shortened(network.name.empty() ? "hidden" : network.name, kLabelColumns);
  return signals.IsBeyond(*network.signal) ? name + ", " + std::to_string(*network.signal) + " dBm"
                                           : name;
}

std::string Described(const Network& network) {
  return (network.name.empty() ? std::string("Hidden network") : network.name) + ", " +
         network.mac + ", channel " + std::to_string(*network.channel) + ", " +
         std::to_string(*network.signal) + " dBm" +
         (network.security.empty() ? "" : ", " + network.security) +
         (network.associated ? ", associated" : "");
}

/// The networks of a channel without curves of their own, as high as the strongest of them.
void DrawEnvelope(Html& html, const Axes& axes, int centre, const Channel& channel) {
  if (channel.bells.size() <= kOwnBells) return;
  const int strongest = *channel.bells[kOwnBells]->network->signal;
  const int weakest = *channel.bells.back()->network->signal;
  html.Open("path",
            {{"class", "envelope"},
             {"data-signal", std::to_string(strongest)},
             {"d", BellPath(axes.X(centre), axes.Width(kChannelWidth) / 2, axes.Y(strongest))}});
  html.Element("title", {},
               Counted(channel.bells.size() - kOwnBells, "more network") + " on channel " +
                   std::to_string(*channel.bells.front()->network->channel) + ", from " +
                   std::to_string(strongest) + " to " + std::to_string(weakest) + " dBm");
  html.Close().NewLine();
}

/// The curves, the strongest at the back, so that the pointer reaches every one, and the associated
/// network in front.
void DrawBells(Html& html, const Axes& axes, const std::vector<const Bell*>& strongestFirst) {
  std::vector<const Bell*> drawn = strongestFirst;
  std::stable_partition(drawn.begin(), drawn.end(),
                        [](const Bell* bell) { return !bell->network->associated; });
  for (const Bell* bell : drawn) {
    const Network& network = *bell->network;
    const double x = axes.X(*network.centre);
    const double y = axes.Y(*network.signal);
    html.Open("path", {{"class", StyleOf(network)},
                       {"data-network", bell->id},
                       {"data-signal", std::to_string(*network.signal)},
                       {"d", BellPath(x, axes.Width(kChannelWidth) / 2, y)}});
    html.Element("title", {}, Described(network)).Close().NewLine();
    if (!axes.signals().IsBeyond(*network.signal)) continue;
    const double tip = *network.signal > axes.signals().highest() ? -1 : 1;
    const auto point = [&](double px, double py) { return Number(px) + " " + Number(py); };
    html.Empty("path", {{"class", "beyond"},
                        {"d", "M" + point(x - 4, y + tip * 3) + "L" + point(x + 4, y + tip * 3) +
                                  "L" + point(x, y + tip * 10) + "Z"}});
  }
}

void DrawLabels(Html& html, const Axes& axes, const std::vector<const Bell*>& strongestFirst,
                Channels* channels) {
  std::vector<LabelWish> wishes;
  for (const Bell* bell : strongestFirst) {
    const Network& network = *bell->network;
    const double width = EstimatedTextWidth(LabelOf(network, axes.signals())) * kLabelSize;
    const Box box = {axes.X(*network.centre) - width / 2,
                     axes.Y(*network.signal) - kLabelLift - kLabelHeight, width, kLabelHeight};
    wishes.push_back({box, *network.signal, network.associated});
  }
  const std::vector<std::optional<Box>> places =
      PlaceLabels(wishes, {kLeft + 34, 0, kRight - kLeft - 34, kBottom - kCountsHeight});
  html.Open("g", {{"class", "labels"}});
  for (std::size_t index = 0; index < places.size(); ++index) {
    const std::optional<Box>& box = places[index];
    if (!box) continue;
    const Network& network = *strongestFirst[index]->network;
    ++channels->at(*network.centre).labels;
    const double x = axes.X(*network.centre);
    const double y = axes.Y(*network.signal);
    const double middle = box->left + box->width / 2;
    html.Open("g", {{"class", StyleOf(network)}, {"data-network", strongestFirst[index]->id}});
    if (std::abs(box->top - wishes[index].box.top) > kLeaderFrom) {
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
    html.Element("text",
                 {{"data-signal", std::to_string(*network.signal)},
                  {"x", Number(middle)},
                  {"y", Number(box->top + kLabelHeight - 3.5)}},
                 LabelOf(network, axes.signals()));
    html.Close().NewLine();
  }
  html.Close().NewLine();
}

/// Below each channel the number of its networks, and on its base the number without a label.
void DrawCounts(Html& html, const Axes& axes, const Channels& channels) {
  html.Open("g", {{"class", "counts"}});
  double before = -kWidth;
  bool isLow = false;
  for (const auto& [centre, channel] : channels) {
    const double x = axes.X(centre);
    // Counts of neighbouring channels alternate in height where they are close together.
    isLow = x - before < kCountWidth && !isLow;
    before = x;
    const double drop = isLow ? 10 : 0;
    html.Element("text", {{"class", "count"}, {"x", Number(x)}, {"y", Number(kBottom + 33 + drop)}},
                 std::to_string(channel.bells.size()));
    const std::size_t unlabelled = channel.bells.size() - channel.labels;
    if (unlabelled == 0) continue;
    html.Element("text", {{"class", "more"}, {"x", Number(x)}, {"y", Number(kBottom - 4 - drop)}},
                 "+" + std::to_string(unlabelled));
  }
  html.Close().NewLine();
}

}  // namespace

void DrawSignalChart(Html& html, Spectrum spectrum, const std::vector<Bell>& bells,
                     const std::string& id, const std::string& title) {
  constexpr int kLastChannel = 14;
  SignalScale scale;
  bool hasLastChannel = false;
  for (const Bell& bell : bells) {
    scale.Include(*bell.network->signal);
    hasLastChannel = hasLastChannel || bell.network->channel == kLastChannel;
  }
  const Axes axes(SegmentsOf(spectrum, hasLastChannel), scale);
  Channels channels = ChannelsOf(bells);
  std::vector<const Bell*> strongest;
  for (const auto& [centre, channel] : channels) {
    strongest.insert(strongest.end(), channel.bells.begin(),
                     channel.bells.begin() + static_cast<std::ptrdiff_t>(channel.own()));
  }
  std::ranges::stable_sort(strongest, IsStronger);
  html.Open("svg", {{"viewBox", "0 0 " + Number(kWidth) + " " + Number(kHeight)},
                    {"role", "img"},
                    {"data-lowest", std::to_string(scale.lowest())},
                    {"data-highest", std::to_string(scale.highest())},
                    {"aria-labelledby", id}});
  html.Element("title", {{"id", id}}, title);
  html.NewLine();
  DrawAxes(html, axes, spectrum);
  html.Open("g", {{"class", strongest.size() > kDense ? "bells dense" : "bells"}}).NewLine();
  for (const auto& [centre, channel] : channels) DrawEnvelope(html, axes, centre, channel);
  DrawBells(html, axes, strongest);
  html.Close().NewLine();
  DrawLabels(html, axes, strongest, &channels);
  DrawCounts(html, axes, channels);
  html.Close().NewLine();
}

}  // namespace host
