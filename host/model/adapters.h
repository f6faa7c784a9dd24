#pragma once
// The adapters of a machine: what is known about each, and why the rest is unknown.

#include <array>
#include <cstdint>
#include <optional>
#include <string>
#include <vector>

#include "host/model/dump.h"
#include "host/model/networks.h"
#include "host/model/source.h"

namespace host {

enum class AdapterFact {
  kNetwork,
  kAccessPoint,
  kSignal,  ///< "-58 dBm"
  kChannel,
  kRate,
  kSecurity,
  kProfile,  ///< used by the association
  kAppliedProfile,
  kAddress,
  kGateway,
  kNameServers,
  kMac,
  kType,
  kDriver,
  kCount
};

/// Something that a user wants to know about an adapter.
struct Fact {
  std::string value;  ///< empty if there is no value
  std::string why;    ///< why the value is unknown; empty if it is known or there is none
  bool isInvented = false;
};

/// The label of a fact: "Access point".
const char* LabelOf(AdapterFact fact);

/// A number that an adapter counted.
struct Counter {
  const char* label;
  std::optional<std::uint32_t> value;
};

/// Packets of one data rate.
struct RatePackets {
  std::string rate;  ///< in the driver's unit
  std::uint64_t sent = 0;
  std::uint64_t received = 0;
};

inline constexpr std::size_t kRoamingCauses = 5;

struct Adapter {
  std::string key;
  std::string title;  ///< its description, with its key
  std::optional<bool> isEnabled;
  std::optional<bool> radioOn;          ///< by software
  std::optional<bool> hardwareRadioOn;  ///< by the switch
  std::optional<bool> isAssociated;
  std::string whyUnknown;  ///< why it is unknown whether it is associated
  bool hasFailedAuthentication = false;
  std::optional<int> signal;  ///< of its network, in dBm, if it is associated
  std::array<Fact, static_cast<std::size_t>(AdapterFact::kCount)> facts;

  std::vector<const Network*> networks;  ///< in range
  std::string
      whyUnheard;  ///< why there may be more networks, or none is known; empty if these are all

  Counter roamed = {};
  std::array<Counter, kRoamingCauses> roamingCauses = {};
  std::string whyNoRoaming;
  std::vector<RatePackets> packets;  ///< by rate, in the adapter's order; empty if unknown
  std::string whyNoPackets;

  const Fact& Get(AdapterFact fact) const { return facts[static_cast<std::size_t>(fact)]; }
};

/// All adapters that any class names, in the order of their numbers. `networks` are those of the
/// dump and must outlive the adapters.
std::vector<Adapter> AdaptersOf(const Dump& dump, const Source& source,
                                const std::vector<Network>& networks);

/// Counts above 2^31 are put as negative numbers.
std::optional<std::uint32_t> CountOf(const Json& row, const char* property);

}  // namespace host
