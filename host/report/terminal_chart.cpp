#include "host/report/terminal_chart.h"

#include <algorithm>
#include <cstdint>
#include <cstdlib>

#include "host/format/format.h"
#include "host/report/chart_labels.h"
#include "host/report/findings.h"
#include "host/report/signal_chart.h"

namespace host {
namespace {

constexpr int kRowSignal = 5;  ///< dB that one line stands for
constexpr int kLines = (kHighestSignal - kLowestSignal) / kRowSignal;
constexpr int kEighths = 8;  ///< heights that a block character can have
constexpr int kMargin = 6;   ///< columns of the scale
constexpr int kNarrowest = 40;
constexpr int kWidest = 120;
constexpr int kWithAddresses = 80;  ///< from this width on the legend has them
constexpr int kMeterColumns = 10;
constexpr const char* kBlocks[] = {" ", "▁", "▂", "▃", "▄", "▅", "▆", "▇", "█"};
/// So many bells cover a cell; the last stands for more.
constexpr const char* kShades[] = {" ", "░", "▒", "▓"};
constexpr std::string_view kMarks =
    "abcdefghijklmnopqrstuvwxyzABCDEFGHIJKLMNOPQRSTUVWXYZ0123456789";

std::string Blanks(int count) {
  return std::string(static_cast<std::size_t>(std::max(count, 0)), ' ');
}

std::string Right(const std::string& text, int columns) {
  return Blanks(columns - static_cast<int>(text.size())) + text;
}

/// Eighths of a line above the base.
int HeightOf(int signal) {
  const int shown = std::clamp(signal, kLowestSignal, kHighestSignal);
  return (shown - kLowestSignal) * kEighths / kRowSignal;
}

/// The columns of a chart and the frequencies that they stand for.
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
  /// How far two columns are apart, in parts of a megahertz.
  std::int64_t Apart(int left, int right) const {
    return std::abs(middles_[static_cast<std::size_t>(left)] -
                    middles_[static_cast<std::size_t>(right)]);
  }

  static constexpr int kFineness = 100;  ///< parts of a megahertz

 private:
  static constexpr int kGap = 0;

  std::vector<int> middles_;
};

/// The height of a network's bell in eighths, 0 outside of it. It stands on the column of its peak,
/// so that both sides are alike.
int BellAt(const Network& network, const Columns& columns, int column) {
  const std::int64_t half = kChannelWidth * Columns::kFineness / 2;
  const std::int64_t away = columns.Apart(column, columns.Nearest(*network.centre));
  if (columns.IsGap(column) || away >= half) return 0;
  const std::int64_t share = half * half - away * away;
  return static_cast<int>(HeightOf(*network.signal) * share * share / (half * half * half * half));
}

using Picture = std::vector<std::vector<std::string>>;

Picture Bells(const std::vector<Network>& networks, const Columns& columns) {
  Picture picture(kLines, std::vector<std::string>(static_cast<std::size_t>(columns.count()), " "));
  for (int column = 0; column < columns.count(); ++column) {
    std::vector<int> heights;
    for (const Network& network : networks) {
      heights.push_back(BellAt(network, columns, column));
    }
    const int highest = std::ranges::max(heights);
    for (int line = 0; line < kLines; ++line) {
      const int base = (kLines - 1 - line) * kEighths;
      const auto covering =
          std::ranges::count_if(heights, [=](int height) { return height >= base + kEighths / 2; });
      std::string& cell = picture[static_cast<std::size_t>(line)][static_cast<std::size_t>(column)];
      if (highest >= base + kEighths) {
        cell = kShades[std::clamp<std::ptrdiff_t>(covering, 1, 3)];
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

/// Puts each network's letter at its peak, or beside it where another one stands.
void PutMarks(const std::vector<Network>& networks, const Columns& columns, Picture* picture) {
  for (std::size_t index = 0; index < std::min(networks.size(), kMarks.size()); ++index) {
    const int height = std::max(HeightOf(*networks[index].signal) - 1, 0);
    std::vector<std::string>& line = (*picture)[static_cast<std::size_t>(
        std::clamp(kLines - 1 - height / kEighths, 0, kLines - 1))];
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

/// The numbers of the channels below their columns, as many as fit.
std::string ChannelLine(Spectrum spectrum, const std::vector<Segment>& segments,
                        const Columns& columns) {
  std::string line;
  for (const auto& [channel, centre] : ChannelTicks(spectrum, segments)) {
    const std::string number = std::to_string(channel);
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

std::string MeterText(int signal) {
  const int eighths = HeightOf(signal) * kMeterColumns / kLines;
  constexpr const char* kBars[] = {"", "▏", "▎", "▍", "▌", "▋", "▊", "▉"};
  std::string text;
  for (int column = 0; column < eighths / kEighths; ++column) text += "█";
  text += kBars[eighths % kEighths];
  return text + Blanks(kMeterColumns - DisplayWidth(text));
}

std::string LegendLine(char mark, const Network& network, int width) {
  std::string start = std::string(1, mark) + "  " + MeterText(*network.signal) + "  " +
                      Right(std::to_string(*network.signal), 4) + " dBm  channel " +
                      Right(std::to_string(*network.channel), 3) + "  ";
  if (width >= kWithAddresses) start += network.mac + "  ";
  const std::string name = network.name.empty() ? "(hidden)" : network.name;
  return start + Shortened(name, std::max(width - DisplayWidth(start), 8)) + "\n";
}

std::string Trimmed(const std::string& line) {
  return line.substr(0, line.find_last_not_of(' ') + 1) + "\n";
}

/// `networks` are those of one adapter and band, the strongest first.
std::string OneChart(Spectrum spectrum, const std::vector<Network>& networks, int width) {
  std::vector<const Network*> pointers;
  for (const Network& network : networks) pointers.push_back(&network);
  const std::vector<Segment> segments = SegmentsOf(spectrum, pointers);
  const Columns columns(segments, std::clamp(width, kNarrowest, kWidest) - kMargin);
  Picture picture = Bells(networks, columns);
  PutMarks(networks, columns, &picture);
  std::string text;
  for (int line = 0; line < kLines; ++line) {
    const int signal = kHighestSignal - line * kRowSignal;
    std::string row = Right(line % 2 == 0 ? std::to_string(signal) : "", kMargin - 2) + " │";
    for (const std::string& cell : picture[static_cast<std::size_t>(line)]) row += cell;
    text += Trimmed(row);
  }
  text += Right("dBm", kMargin - 2) + " └";
  for (int column = 0; column < columns.count(); ++column) {
    text += columns.IsGap(column) ? " " : "─";
  }
  text += "\n" + Trimmed(Blanks(kMargin) + ChannelLine(spectrum, segments, columns)) + "\n";
  for (std::size_t index = 0; index < networks.size(); ++index) {
    text += LegendLine(index < kMarks.size() ? kMarks[index] : ' ', networks[index], width);
  }
  return text;
}

}  // namespace

bool CanChart(const ClassInfo& info) {
  return info.FindProperty("NetworkName") && info.FindProperty("RSSI");
}

std::string ChartText(const Json& rows, int width) {
  struct Group {
    std::string adapter;
    Spectrum spectrum;
    std::vector<Network> networks;
  };
  std::vector<Group> groups;
  std::string others;
  for (const Json& row : rows) {
    const std::optional<Network> network = ChartedNetwork(row);
    if (!network || !network->centre) {
      others += "no place on a chart: " + TextOf(row, "MacAddress") + "  " +
                TextOf(row, "NetworkName") + "\n";
      continue;
    }
    auto group = std::ranges::find_if(groups, [&](const Group& each) {
      return each.adapter == network->adapter && each.spectrum == network->spectrum;
    });
    if (group == groups.end()) {
      group = groups.insert(group, {network->adapter, network->spectrum, {}});
    }
    group->networks.push_back(*network);
  }
  std::ranges::stable_sort(groups, {}, &Group::spectrum);
  std::string text;
  for (Group& group : groups) {
    std::ranges::stable_sort(group.networks, std::ranges::greater(), &Network::signal);
    text += (text.empty() ? "" : "\n") + SpectrumTitle(group.spectrum) + ", adapter " +
            group.adapter + "\n" + OneChart(group.spectrum, group.networks, width);
  }
  if (!others.empty() && !text.empty()) text += "\n";
  return text + others;
}

}  // namespace host
