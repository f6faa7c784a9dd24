#pragma once
// The networks that a machine hears, in the form that charts and tables need.

#include <optional>
#include <string>
#include <vector>

#include "host/model/source.h"

namespace host {

enum class Spectrum { k24GHz, k5GHz, kUnknown };
enum class Protection { kUnknown, kOpen, kWep, kProtected };

/// Width of a channel of 802.11a, b and g, in MHz.
inline constexpr int kChannelWidth = 20;

/// One access point or ad hoc network as one adapter hears it.
struct Network {
  std::string adapter;   ///< key of the adapter
  std::string name;      ///< empty if the network hides it
  std::string utf8Name;  ///< the name read as UTF-8, if its bytes are UTF-8 too; else empty
  std::string mac;
  std::string standard;  ///< "802.11g"
  std::string mode;      ///< "Infrastructure"
  Spectrum spectrum = Spectrum::kUnknown;
  std::optional<int> channel;
  std::optional<int> centre;  ///< in MHz, if the channel belongs to its spectrum
  std::optional<int> signal;  ///< dBm
  Protection protection = Protection::kUnknown;
  std::string security;              ///< "WPA2-Personal, AES-CCMP"; empty if unknown
  std::optional<bool> available;     ///< the adapter can join it now
  bool isAvailableInvented = false;  ///< the source did not tell `available`
  bool associated = false;           ///< the adapter is associated with it
};

/// The networks of both lists, each once per adapter, in the order of the lists.
std::vector<Network> NetworksOf(const Dump& dump, const Source& source);
/// A network of either list, as far as the row gives it.
Network NetworkOf(const Json& row);
/// Why a chart of its band cannot show a network, such as "channel 0"; empty if it can.
std::string WhyNotCharted(const Network& network);

/// Whether the two channels overlap. Equal channels do.
bool Overlap(const Network& left, const Network& right);

/// "2.4 GHz"
std::string SpectrumTitle(Spectrum spectrum);

}  // namespace host
