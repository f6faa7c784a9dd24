#include "bench/library.h"

#include <cstring>
#include <string>
#include <type_traits>

#include "adapterapi/tolva_api.h"

namespace bench {
namespace {

std::size_t profileCount = 0;

/// A count, then `count` records, at the library's own packing.
template <class Record>
std::vector<char> ListOf(std::size_t count, void (*fill)(std::size_t, Record&)) {
  std::vector<char> bytes(4 + count * sizeof(Record));
  const auto length = static_cast<std::int32_t>(count);
  std::memcpy(bytes.data(), &length, sizeof(length));
  for (std::size_t index = 0; index < count; ++index) {
    Record record;
    std::memset(&record, 0, sizeof(record));
    fill(index, record);
    std::memcpy(bytes.data() + 4 + index * sizeof(Record), &record, sizeof(record));
  }
  return bytes;
}

void NameNetwork(char (&field)[33], std::size_t index) {
  std::strcpy(field, ("network " + std::to_string(index)).c_str());
}

void FillNetwork(std::size_t index, ScanListEntry& entry) {
  NameNetwork(entry.ssid, index);
  Library::WriteMac(index, entry.macAddress);
  entry.band = 3;
  entry.opMode = 1;
  entry.rssi = -57;
  entry.encrypted = 1;
  entry.channel = 11;
  entry.authBits = 0x20;
  entry.unicastBits = entry.multicastBits = 0x10;
}

void FillExcluded(std::size_t index, ExcludeEntryRecord& entry) {
  std::memcpy(entry.ssid, std::to_string(index).data(), std::to_string(index).size());
  Library::WriteMac(index, entry.macAddress);
  entry.reasonBits = 1;
}

void FillAdapter(std::size_t index, AdapterListRecord& record) {
  record.number = static_cast<std::uint32_t>(index);
  Library::WriteMac(index, record.macAddress);
  record.present = 1;
}

/// What getters write: records of small numbers, most of them known codes.
template <class Record>
void FillRecord(Record& record) {
  if constexpr (std::is_arithmetic_v<Record>) {
    record = 1;
  } else {
    static const Record typical = [] {
      Record made;
      std::memset(&made, 0, sizeof(made));
      // Works for texts and codes: a word of 1 is a number and a text of one character.
      for (std::size_t at = 0; at + 4 <= sizeof(made); at += 4) {
        const std::uint32_t word = 1;
        std::memcpy(reinterpret_cast<char*>(&made) + at, &word, sizeof(word));
      }
      return made;
    }();
    record = typical;
  }
}

}  // namespace

void Library::WriteMac(std::size_t index, MacAddress& mac) {
  for (std::size_t byte = 0; byte < sizeof(mac); ++byte) {
    mac[sizeof(mac) - 1 - byte] = static_cast<std::uint8_t>(index >> (8 * byte));
  }
}

Library::Library(std::size_t adapters, std::size_t networks)
    : adapterList_(ListOf(adapters, FillAdapter)),
      scanList_(ListOf(networks, FillNetwork)),
      excludeList_(ListOf(networks, FillExcluded)) {}

template <class Argument>
void Library::Answer(Argument argument) {
  if constexpr (std::is_pointer_v<Argument>) {
    using Target = std::remove_pointer_t<Argument>;
    if constexpr (std::is_same_v<Target, const AdapterList*>) {
      *argument = reinterpret_cast<const AdapterList*>(adapterList_.data());
    } else if constexpr (std::is_same_v<Target, const ScanList*>) {
      *argument = reinterpret_cast<const ScanList*>(scanList_.data());
    } else if constexpr (std::is_same_v<Target, const ExcludeList*>) {
      *argument = reinterpret_cast<const ExcludeList*>(excludeList_.data());
    } else if constexpr (!std::is_const_v<Target>) {
      FillRecord(*argument);
    }
  }
}

template <class... Arguments>
ApiStatus Library::Call(ApiStatus (AdapterApi::*operation)(Arguments...),
                        std::type_identity_t<Arguments>... arguments) {
  if (noting_) {
    // Outputs go to one place that outlives the provider's own records.
    [[maybe_unused]] const auto kept = [this](auto argument) {
      if constexpr (std::is_pointer_v<decltype(argument)>) {
        return reinterpret_cast<decltype(argument)>(scratch_);
      } else {
        return argument;
      }
    };
    noted_.push_back([this, operation, ... again = kept(arguments)] {
      (static_cast<AdapterApi*>(this)->*operation)(again...);
    });
  }
  (Answer(arguments), ...);
  return 0;
}

#define QUARN_OPERATION(ordinal, name, parameters, arguments) \
  ApiStatus Library::name parameters {                        \
    return Bound(&AdapterApi::name) arguments;                \
  }
#include "adapterapi/operations.inc"
#undef QUARN_OPERATION

void SetProfileCount(std::size_t count) {
  profileCount = count;
}

}  // namespace bench

// The profile library: profiles without memory of their own, only in the user store.

CPreferredProfile::CPreferredProfile() : storage_{} {}
CPreferredProfile::~CPreferredProfile() = default;
const char* CPreferredProfile::Name() const {
  return "profile";
}
const char* CPreferredProfile::Ssid() const {
  return "network";
}
const char* CPreferredProfile::MandatoryAp() const {
  return "";
}
ORVEL_OPMODE CPreferredProfile::OpMode() const {
  return ORVEL_OPMODE_BSS;
}
LONG CPreferredProfile::Stealth() const {
  return 0;
}
ORVEL_ALGORITHM CPreferredProfile::WepAlgorithm() const {
  return ORVEL_ALGORITHM{6};
}
ORVEL_AUTHMODE CPreferredProfile::AuthMode() const {
  return ORVEL_AUTHMODE{1};
}

namespace {

std::size_t loaded = 0;

LONG LoadNext(ULONG store) {
  return store == 1 && loaded++ < bench::profileCount ? kTolvaSuccess : kTolvaNoMoreProfiles;
}

}  // namespace

CProfileMgr::CProfileMgr() : storage_{} {}
CProfileMgr::~CProfileMgr() = default;
void CProfileMgr::SetWiFiProvider(bool) {}
LONG CProfileMgr::Open(ULONG) {
  return kTolvaSuccess;
}
LONG CProfileMgr::Close() {
  return kTolvaSuccess;
}
LONG CProfileMgr::GetFirstPreferredProfile(CPreferredProfile&, ULONG store) {
  loaded = 0;
  return LoadNext(store);
}
LONG CProfileMgr::GetNextPreferredProfile(CPreferredProfile&, ULONG store) {
  return LoadNext(store);
}
LONG CProfileMgr::GetProfileToApply(const char*, ORVEL_WLAN_PROFILE&, ULONG) {
  return 0;
}
