#include "scenario/iw_scan.h"

#include <algorithm>
#include <cctype>
#include <charconv>
#include <span>

#include "platform/ascii.h"
#include "scenario/platform_objects.h"

namespace simulator {
namespace {

using platform::HexDigit;

constexpr std::string_view kBlanks = " \t\r";
constexpr std::size_t kLongestName = 32;         // octets
constexpr double kBestRate = 54;                 // Mbit/s
constexpr double k11bRates[] = {1, 2, 5.5, 11};  // Mbit/s

/// What was expected in a line.
struct Expected {
  std::string what;
};

std::string_view Trim(std::string_view text) {
  const std::size_t first = text.find_first_not_of(kBlanks);
  if (first == text.npos) return {};
  return text.substr(first, text.find_last_not_of(kBlanks) - first + 1);
}

/// Removes and returns the text before `separator`, and removes the separator.
std::string_view Take(std::string_view& text, char separator) {
  const std::size_t end = std::min(text.find(separator), text.size());
  const std::string_view taken = text.substr(0, end);
  text.remove_prefix(std::min(end + 1, text.size()));
  return taken;
}

std::vector<std::string_view> Words(std::string_view text) {
  std::vector<std::string_view> words;
  while (!(text = Trim(text)).empty()) words.push_back(Take(text, ' '));
  return words;
}

/// The number at the start; nullopt unless it is between `least` and `most`.
std::optional<double> NumberOf(std::string_view text, double least, double most) {
  double number = 0;
  const auto [stop, error] = std::from_chars(text.data(), text.data() + text.size(), number);
  if (error != std::errc() || !(number >= least && number <= most)) return std::nullopt;
  return number;
}

double Expect(std::string_view text, double least, double most, const char* what) {
  const auto number = NumberOf(text, least, most);
  if (!number) throw Expected{what};
  return *number;
}

/// The octets of a name in which backslashes, unprintable octets and blanks at both ends are \xNN.
std::string Unescape(std::string_view text) {
  std::string name;
  while (!text.empty()) {
    std::size_t size = 1;
    char octet = text.front();
    if (text.size() >= 4 && text.starts_with("\\x") && HexDigit(text[2]) >= 0 &&
        HexDigit(text[3]) >= 0) {
      octet = static_cast<char>(HexDigit(text[2]) * 16 + HexDigit(text[3]));
      size = 4;
    }
    name.push_back(octet);
    text.remove_prefix(size);
  }
  return name;
}

// One reader per field. `value` is the text after the colon, without blanks around it.

void ReadFrequency(std::string_view value, IwNetwork& network) {
  network.frequency = Expect(value, 1, 100000, "a frequency in MHz");
}

void ReadSignal(std::string_view value, IwNetwork& network) {
  // A driver that does not know a unit gives hundredths of its best signal.
  network.signal = value.ends_with("/100")
                       ? Expect(value, 0, 100, "a signal from 0/100 to 100/100") / 2 - 100
                       : Expect(value, -200, 100, "a signal in dBm");
}

void ReadLastSeen(std::string_view value, IwNetwork& network) {
  network.lastSeen = Expect(value, 0, 1e15, "a time in ms");
}

void ReadCapability(std::string_view value, IwNetwork& network) {
  for (const std::string_view word : Words(value)) {
    network.privacy |= word == "Privacy";
    network.adHoc |= word == "IBSS";
  }
}

/// A beacon may hide the name that the network's probe response contains.
void ReadName(std::string_view value, IwNetwork& network) {
  std::string name = Unescape(value);
  if (name.size() > kLongestName) throw Expected{"a name of at most 32 octets"};
  const bool announced = name.find_first_not_of('\0') != name.npos;
  network.hidden = !announced;
  if (announced) network.name = std::move(name);
}

/// Words that are not rates, and rates above those of 802.11a and g, mean other requirements.
void ReadRates(std::string_view value, IwNetwork& network) {
  for (const std::string_view word : Words(value)) {
    const auto rate = NumberOf(word, 0.5, kBestRate);
    if (!rate) continue;
    network.bestRate = std::max(network.bestRate, static_cast<std::uint32_t>(*rate * 1e6));
    network.only11bRates &= std::ranges::find(k11bRates, *rate) != std::end(k11bRates);
  }
}

struct FieldRow {
  std::string_view name;
  void (*read)(std::string_view value, IwNetwork& network);
};

constexpr FieldRow kFields[] = {{"freq", ReadFrequency},
                                {"signal", ReadSignal},
                                {"last seen", ReadLastSeen},
                                {"capability", ReadCapability},
                                {"SSID", ReadName},
                                {"Supported rates", ReadRates},
                                {"Extended supported rates", ReadRates}};

/// What the name or number of a suite contains, and the scenario's word for it in either element.
struct SuiteRow {
  std::string_view part;
  std::string_view inRsn;
  std::string_view inWpa;
};

constexpr SuiteRow kCiphers[] = {{"CCMP", "AES-CCMP", "AES-CCMP"},
                                 {"TKIP", "TKIP", "TKIP"},
                                 {"WEP-104", "WEP104", "WEP104"},
                                 {"WEP-40", "WEP40", "WEP40"}};
// Passwords proved by SAE (8, 9) are personal keys too; OWE (18) encrypts without authentication.
constexpr SuiteRow kSuites[] = {{"802.1X", "RSNA", "WPA"},    {"FILS", "RSNA", "RSNA"},
                                {"PSK", "PSK", "WPA_PSK"},    {"SAE", "PSK", "PSK"},
                                {"00-0f-ac:8", "PSK", "PSK"}, {"00-0f-ac:9", "PSK", "PSK"},
                                {"OWE", "Open", "Open"},      {"00-0f-ac:18", "Open", "Open"}};

void AddSuites(std::span<const SuiteRow> rows, bool rsn, std::string_view value,
               std::set<std::string_view>& names) {
  for (const std::string_view word : Words(value)) {
    const auto row = std::ranges::find_if(
        rows, [word](const SuiteRow& suite) { return word.find(suite.part) != word.npos; });
    if (row != rows.end()) names.insert(rsn ? row->inRsn : row->inWpa);
  }
}

/// Reads one line of an RSN or WPA element.
void ReadSecurity(bool rsn, std::string_view line, IwNetwork& network) {
  const std::string_view name = Take(line, ':');
  if (name == "Group cipher") {
    AddSuites(kCiphers, rsn, line, network.multicast);
  } else if (name == "Pairwise ciphers" && Trim(line).starts_with("Use group cipher")) {
    network.unicast.insert(network.multicast.begin(), network.multicast.end());
  } else if (name == "Pairwise ciphers") {
    AddSuites(kCiphers, rsn, line, network.unicast);
  } else if (name == "Authentication suites") {
    AddSuites(kSuites, rsn, line, network.auth);
  }
}

/// An address of six pairs. In a masked address every "xx" or "**" becomes XX, and an ellipsis
/// stands for the missing pairs. Empty for any other text.
std::string AddressOf(std::string_view text) {
  constexpr std::size_t kPairs = 6;
  const auto isMask = [](std::string_view part) {
    return part == "xx" || part == "XX" || part == "**";
  };
  std::vector<std::string> pairs;
  std::optional<std::size_t> gap;
  do {
    const std::string_view part = Take(text, ':');
    if (part == "..." || part == "\u2026") {
      if (gap) return "";
      gap = pairs.size();
    } else if (isMask(part)) {
      pairs.emplace_back(kMaskedPair);
    } else if (part.size() == 2 && HexDigit(part[0]) >= 0 && HexDigit(part[1]) >= 0) {
      pairs.emplace_back(part);
      for (char& digit : pairs.back()) {
        digit = static_cast<char>(std::toupper(static_cast<unsigned char>(digit)));
      }
    } else {
      return "";
    }
  } while (!text.empty() && pairs.size() <= kPairs);
  if (gap && pairs.size() < kPairs) {
    pairs.insert(pairs.begin() + static_cast<std::ptrdiff_t>(*gap), kPairs - pairs.size(),
                 std::string(kMaskedPair));
  }
  if (pairs.size() != kPairs) return "";
  std::string address;
  for (const std::string& pair : pairs) address += (address.empty() ? "" : ":") + pair;
  return address;
}

/// Reads "BSS 02:00:00:00:00:01(on wlan0) -- associated".
IwNetwork ReadHeading(std::string_view line) {
  constexpr std::string_view kHeading = "BSS ";
  IwNetwork network;
  std::string_view rest = line;
  if (line.starts_with(kHeading)) {
    rest.remove_prefix(kHeading.size());
    const std::size_t end = std::min(rest.find_first_of("( \t\r"), rest.size());
    network.address = AddressOf(rest.substr(0, end));
    rest.remove_prefix(end);
  }
  if (network.address.empty()) throw Expected{"'BSS <address>'"};
  network.associated =
      rest.find("-- associated") != rest.npos || rest.find("-- joined") != rest.npos;
  return network;
}

/// The networks so far, and the element that the next line may belong to.
class Capture {
 public:
  void Read(std::string_view line, std::size_t number) {
    const std::string_view text = Trim(line);
    if (text.empty()) return;
    if (networks_.empty() || kBlanks.find(line.front()) == kBlanks.npos) {
      networks_.push_back(ReadHeading(line));
      networks_.back().line = number;
      element_ = {};
      return;
    }
    std::string_view value = text;
    if (!text.starts_with('*')) {
      element_ = Take(value, ':');
      value = Trim(value);
      const auto row = std::ranges::find(kFields, element_, &FieldRow::name);
      if (row != std::end(kFields)) return row->read(value, networks_.back());
    }
    const bool rsn = element_ == "RSN";
    if (!rsn && element_ != "WPA") return;
    networks_.back().secured = true;
    if (value.starts_with('*')) ReadSecurity(rsn, Trim(value.substr(1)), networks_.back());
  }

  std::vector<IwNetwork> Networks() && {
    if (networks_.empty()) throw Expected{"'BSS <address>'"};
    return std::move(networks_);
  }

 private:
  std::vector<IwNetwork> networks_;
  std::string_view element_;
};

/// The start of a line, with only printable characters.
std::string Shown(std::string_view line) {
  constexpr std::size_t kMost = 40;
  const std::string_view text = Trim(line);
  if (text.empty()) return "nothing";
  std::string shown(text.substr(0, kMost));
  std::ranges::replace_if(
      shown, [](char character) { return character < ' ' || character > '~'; }, '?');
  return "'" + shown + (text.size() > kMost ? "...'" : "'");
}

}  // namespace

std::vector<IwNetwork> ParseIwScan(std::string_view capture, const std::string& source) {
  Capture networks;
  std::string_view line;
  std::size_t number = 1;
  try {
    for (; !capture.empty(); ++number) {
      line = Take(capture, '\n');
      networks.Read(line, number);
    }
    line = {};
    return std::move(networks).Networks();
  } catch (const Expected& expected) {
    throw ScenarioError(source + ", line " + std::to_string(number) + ": expected " +
                        expected.what + ", found " + Shown(line));
  }
}

}  // namespace simulator
