#include "host/report/terminal_chart.h"

#include <algorithm>
#include <cstdint>
#include <cstdlib>
#include <map>

#include "host/format/format.h"
#include "host/model/networks.h"
#include "host/model/wording.h"
#include "host/report/chart_labels.h"
#include "host/report/signal_scale.h"
#include "host/report/spectrum_axis.h"

namespace host {
namespace {

constexpr int kRowSignal = 5;  ///< dB per line
constexpr int kEighths = 8;    ///< heights of a block character
constexpr int kMargin = 6;     ///< columns of the scale
constexpr int kNarrowest = 40;
constexpr int kWidest = 120;
constexpr int kWithAddresses = 80;  ///< minimum width of a legend with addresses
constexpr int kMeterColumns = 10;
constexpr const char* kBlocks[] = {" ", "▁", "▂", "▃", "▄", "▅", "▆", "▇", "█"};
/// By the number of curves that cover a cell; the last one also for more.
constexpr const char* kShades[] = {" ", "░", "▒", "▓"};
constexpr std::size_t kMostShades = 3;
constexpr std::string_view kMarks =
    "abcdefghijklmnopqrstuvwxyzABCDEFGHIJKLMNOPQRSTUVWXYZ0123456789";

std::string Blanks(int count) {
  return std::string(static_cast<std::size_t>(std::max(count, 0)), ' ');
}

std::string Right(const std::string& text, int columns) {
  return Blanks(columns - static_cast<int>(text.size())) + text;
}

int LinesOf(const SignalScale& scale) {
  return scale.span() / kRowSignal;
}

/// The height above the base in eighths of a line.
int HeightOf(const SignalScale& scale, int signal) {
  return scale.Above(signal) * kEighths / kRowSignal;
}

/// The columns of a chart and their frequencies.
class Columns {
 public:
  Columns(const std::vector<Segment>& segments, int count) {
    int megahertz = 0;
    for (const Segment& segment : segments) megahertz += segment.to - segment.from;
    const int gaps = static_cast<int>(segments.size()) - 1;
    for (const Segment& segment : segments) {
      if (!middles_.empty()) middles_.push_back(kGap);
      const int span = segment.to - segment.from;
      const int columns = std::max(1, (count - gaps) * span / megahertz);
      for (int column = 0; column < columns; ++column) {
        middles_.push_back(segment.from * kFineness +
                           (2 * column + 1) * span * kFineness / (2 * columns));
      }
    }
  }

  int count() const { return static_cast<int>(middles_.size()); }
  bool IsGap(int column) const { return middles_[static_cast<std::size_t>(column)] == kGap; }
  int Nearest(int megahertz) const {
    const auto found = std::ranges::min_element(
        middles_, {}, [=](int middle) { return std::abs(middle - megahertz * kFineness); });
    return static_cast<int>(found - middles_.begin());
  }
  /// The distance of two columns, in fractions of a megahertz.
  std::int64_t Apart(int left, int right) const {
    return std::abs(middles_[static_cast<std::size_t>(left)] -
                    middles_[static_cast<std::size_t>(right)]);
  }

  static constexpr int kFineness = 100;  ///< fractions per megahertz

 private:
  static constexpr int kGap = 0;

  std::vector<int> middles_;
};

/// The height, in eighths, of a curve of this height and centre in a column; 0 outside the curve.
/// The curve is centred on the column of its peak, so that both sides are equal.
int BellAt(int peakColumn, int height, const Columns& columns, int column) {
  const std::int64_t half = kChannelWidth * Columns::kFineness / 2;
  const std::int64_t away = columns.Apart(column, peakColumn);
  if (columns.IsGap(column) || away >= half) return 0;
  const std::int64_t share = half * half - away * away;
  return static_cast<int>(height * share * share / (half * half * half * half));
}

using Picture = std::vector<std::vector<std::string>>;

/// `networks` are sorted by strength: those after the first few of a channel change nothing.
Picture Bells(const std::vector<Network>& networks, const Columns& columns,
              const SignalScale& scale) {
  std::map<int, std::vector<int>> peaks;  // peak heights by column
  for (const Network& network : networks) {
    std::vector<int>& heights = peaks[columns.Nearest(*network.centre)];
    if (heights.size() < kMostShades) heights.push_back(HeightOf(scale, *network.signal));
  }
  const int lines = LinesOf(scale);
  Picture picture(static_cast<std::size_t>(lines),
                  std::vector<std::string>(static_cast<std::size_t>(columns.count()), " "));
  for (int column = 0; column < columns.count(); ++column) {
    std::vector<int> heights;
    for (const auto& [peak, ofPeak] : peaks) {
      for (const int height : ofPeak) heights.push_back(BellAt(peak, height, columns, column));
    }
    const int highest = std::ranges::max(heights);
    for (int line = 0; line < lines; ++line) {
      const int base = (lines - 1 - line) * kEighths;
      const auto covering =
          std::ranges::count_if(heights, [=](int height) { return height >= base + kEighths / 2; });
      std::string& cell = picture[static_cast<std::size_t>(line)][static_cast<std::size_t>(column)];
      if (highest >= base + kEighths) {
        cell = kShades[std::clamp<std::ptrdiff_t>(covering, 1, kMostShades)];
      } else if (highest > base) {
        cell = kBlocks[highest - base];
      }
    }
  }
  return picture;
}

bool IsMark(const std::string& cell) {
  return cell.size() == 1 && cell != " ";
}

/// Puts each network's letter at its peak, or next to it if another letter is there.
void PutMarks(const std::vector<Network>& networks, const Columns& columns,
              const SignalScale& scale, Picture* picture) {
  const int lines = LinesOf(scale);
  for (std::size_t index = 0; index < std::min(networks.size(), kMarks.size()); ++index) {
    const int height = std::max(HeightOf(scale, *networks[index].signal) - 1, 0);
    std::vector<std::string>& line = (*picture)[static_cast<std::size_t>(
        std::clamp(lines - 1 - height / kEighths, 0, lines - 1))];
    const int peak = columns.Nearest(*networks[index].centre);
    for (const int shift : {0, 1, -1, 2, -2, 3, -3, 4, -4}) {
      const int column = peak + shift;
      if (column < 0 || column >= columns.count()) continue;
      std::string& cell = line[static_cast<std::size_t>(column)];
      if (IsMark(cell)) continue;
      cell = kMarks[index];
      break;
    }
  }
}

/// Numbers below their columns, as many as fit; `numbers` are in the order of their centres.
std::string NumberLine(const std::vector<std::pair<int, int>>& numbers, const Columns& columns) {
  std::string line;
  for (const auto& [shown, centre] : numbers) {
    const std::string number = std::to_string(shown);
    const int start = columns.Nearest(centre) - static_cast<int>(number.size() - 1) / 2;
    const int used = static_cast<int>(line.size());
    if (start < used + (used > 0 ? 1 : 0) ||
        start + static_cast<int>(number.size()) > columns.count()) {
      continue;
    }
    line += Blanks(start - used) + number;
  }
  return line;
}

/// The number of networks on each channel.
std::vector<std::pair<int, int>> CountsOf(const std::vector<Network>& networks) {
  std::map<int, int> counts;
  for (const Network& network : networks) ++counts[*network.centre];
  std::vector<std::pair<int, int>> numbers;
  for (const auto& [centre, count] : counts) numbers.emplace_back(count, centre);
  return numbers;
}

std::string MeterText(const SignalScale& scale, int signal) {
  const int eighths = HeightOf(scale, signal) * kMeterColumns / LinesOf(scale);
  constexpr const char* kBars[] = {"", "▏", "▎", "▍", "▌", "▋", "▊", "▉"};
  std::string text;
  for (int column = 0; column < eighths / kEighths; ++column) text += "█";
  text += kBars[eighths % kEighths];
  return text + Blanks(kMeterColumns - DisplayWidth(text));
}

std::string NameOf(const Network& network) {
  if (network.name.empty()) return "(hidden)";
  return network.utf8Name.empty() ? network.name
                                  : network.name + " (as UTF-8: " + network.utf8Name + ")";
}

std::string LegendLine(char mark, const SignalScale& scale, const Network& network, int width) {
  const int signal = *network.signal;
  const char* beyond = !scale.IsBeyond(signal) ? " " : signal < scale.lowest() ? "▼" : "▲";
  std::string start = std::string(1, mark) + "  " + MeterText(scale, signal) + "  " +
                      Right(std::to_string(signal), 4) + " dBm" + beyond + " channel " +
                      Right(std::to_string(*network.channel), 3) + "  ";
  if (width >= kWithAddresses) start += network.mac + "  ";
  return start + Shortened(NameOf(network), std::max(width - DisplayWidth(start), 8)) + "\n";
}

std::string Trimmed(const std::string& line) {
  return line.substr(0, line.find_last_not_of(' ') + 1) + "\n";
}

/// `networks` are those of one adapter and band, the strongest first.
std::string OneChart(Spectrum spectrum, const std::vector<Network>& networks, int width) {
  constexpr int kLastChannel = 14;
  SignalScale scale;
  bool hasLastChannel = false;
  for (const Network& network : networks) {
    scale.Include(*network.signal);
    hasLastChannel = hasLastChannel || network.channel == kLastChannel;
  }
  const std::vector<Segment> segments = SegmentsOf(spectrum, hasLastChannel);
  const Columns columns(segments, std::clamp(width, kNarrowest, kWidest) - kMargin);
  Picture picture = Bells(networks, columns, scale);
  PutMarks(networks, columns, scale, &picture);
  std::string text;
  for (int line = 0; line < LinesOf(scale); ++line) {
    const int signal = scale.highest() - line * kRowSignal;
    std::string row = Right(line % 2 == 0 ? std::to_string(signal) : "", kMargin - 2) + " │";
    for (const std::string& cell : picture[static_cast<std::size_t>(line)]) row += cell;
    text += Trimmed(row);
  }
  text += Right("dBm", kMargin - 2) + " └";
  for (int column = 0; column < columns.count(); ++column) {
    text += columns.IsGap(column) ? " " : "─";
  }
  text += "\n" + Trimmed(Blanks(kMargin) + NumberLine(ChannelTicks(spectrum, segments), columns));
  text +=
      Trimmed(Right("count", kMargin - 1) + " " + NumberLine(CountsOf(networks), columns)) + "\n";
  const std::size_t named = std::min(networks.size(), kMarks.size());
  for (std::size_t index = 0; index < named; ++index) {
    text += LegendLine(kMarks[index], scale, networks[index], width);
  }
  if (named < networks.size()) {
    text += "+" + std::to_string(networks.size() - named) + " more, from " +
            std::to_string(*networks[named].signal) + " to " +
            std::to_string(*networks.back().signal) + " dBm\n";
  }
  return text;
}

}  // namespace

bool CanChart(const ClassInfo& info) {
  return info.FindProperty("NetworkName") && info.FindProperty("RSSI");
}

std::string ChartText(const Json& rows, int width) {
  struct Group {
    Spectrum spectrum;
    std::string adapter;
    std::vector<Network> networks = {};
    std::string misplaced = {};
  };
  std::map<std::pair<std::string, Spectrum>, std::size_t> places;
  std::vector<Group> groups;
  for (const Json& row : rows) {
    Network network = NetworkOf(row);
    const auto [place, isNew] =
        places.try_emplace({network.adapter, network.spectrum}, groups.size());
    if (isNew) groups.push_back({network.spectrum, network.adapter});
    Group& group = groups[place->second];
    const std::string why = WhyNotCharted(network);
    if (why.empty()) {
      group.networks.push_back(std::move(network));
    } else {
      const std::string start =
          "not on the chart, " + why + ": " + (width >= kWithAddresses ? network.mac + "  " : "");
      group.misplaced +=
          start + Shortened(NameOf(network), std::max(width - DisplayWidth(start), 8)) + "\n";
    }
  }
  std::ranges::stable_sort(groups, {}, &Group::spectrum);
  std::string text;
  for (Group& group : groups) {
    std::ranges::stable_sort(group.networks, std::ranges::greater(), &Network::signal);
    text += (text.empty() ? "" : "\n") + SpectrumTitle(group.spectrum) + ", adapter " +
            group.adapter + "\n";
    if (!group.networks.empty()) text += OneChart(group.spectrum, group.networks, width);
    text += group.misplaced;
  }
  return text;
}

}  // namespace host
