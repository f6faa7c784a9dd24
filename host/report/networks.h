#pragma once
// The networks of a dump, as charts and tables need them.

#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include "host/service/value.h"

namespace host {

enum class Spectrum { k24GHz, k5GHz, kUnknown };
enum class Protection { kUnknown, kOpen, kWep, kProtected };

/// Width of a channel of 802.11a, b and g, in MHz.
inline constexpr int kChannelWidth = 20;

/// One access point or ad hoc network as one adapter hears it.
struct Network {
  std::string adapter;  ///< key of the adapter
  std::string name;     ///< empty when the network does not tell it
  std::string mac;
  std::string standard;  ///< "802.11g"
  std::string mode;      ///< "Infrastructure"
  Spectrum spectrum = Spectrum::kUnknown;
  std::optional<int> channel;
  std::optional<int> centre;  ///< MHz, of a channel that has a place in its spectrum
  std::optional<int> signal;  ///< dBm
  Protection protection = Protection::kUnknown;
  std::string security;     ///< "WPA2-Personal, AES-CCMP"; empty if unknown
  bool available = false;   ///< the adapter can join it now
  bool associated = false;  ///< the adapter is associated with it
};

/// The networks of both lists, each once for an adapter, in the order of the lists.
std::vector<Network> NetworksOf(const Json& dump);
/// A network of either list, as far as the row tells it; none without a channel and a signal.
std::optional<Network> ChartedNetwork(const Json& row);

/// Whether the channels of both reach into each other. Two on one channel do.
bool Overlap(const Network& left, const Network& right);

/// The rows of a class in a dump, none if it is not there.
const Json& InstancesOf(const Json& dump, std::string_view className);
/// The first row of a class whose property `key` holds `value`; an empty object without one.
const Json& InstanceOf(const Json& dump, std::string_view className, const char* key,
                       std::string_view value);
/// A property as text, empty if the row has none.
std::string TextOf(const Json& row, const char* name);
/// A property as a number, also one that stands as text, with or without a unit behind it.
std::optional<int> NumberOf(const Json& row, const char* name);

}  // namespace host
