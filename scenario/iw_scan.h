#pragma once
// The text that `iw dev <interface> scan` prints.

#include <cstdint>
#include <optional>
#include <set>
#include <string>
#include <string_view>
#include <vector>

namespace simulator {

/// A pair of an address that was masked in the capture.
inline constexpr std::string_view kMaskedPair = "XX";

/// One network of a capture; members that the capture does not give keep these values.
struct IwNetwork {
  std::size_t line = 0;  ///< of its BSS line, from 1
  std::string
      address;  ///< six upper-case pairs joined by colons; kMaskedPair for one that is masked
  bool associated = false;
  std::optional<double> frequency;  ///< MHz
  double signal = -100;             ///< dBm
  std::optional<double> lastSeen;   ///< ms before the scan was printed
  std::string name;                 ///< up to 32 octets, empty if it is not announced
  bool hidden = true;
  bool privacy = false;
  bool adHoc = false;
  std::uint32_t bestRate = 0;  ///< bit/s; of 802.11a, b and g
  bool only11bRates = true;
  bool secured = false;                  ///< has an RSN or WPA element, which fills the sets
  std::set<std::string_view> auth;       ///< names that a scenario has for the bits
  std::set<std::string_view> unicast;    ///< names that a scenario has for the bits
  std::set<std::string_view> multicast;  ///< names that a scenario has for the bits
};

/// Reads a whole capture. Throws ScenarioError: `source`, the line, what was expected.
std::vector<IwNetwork> ParseIwScan(std::string_view capture, const std::string& source);

}  // namespace simulator
