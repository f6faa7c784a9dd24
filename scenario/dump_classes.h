#pragma once
// Which member of a scenario each property of a class shows: one row a class, one row a property
// whose name is not that of its member. Only the sources of this folder and their tests include it.

#include <span>
#include <string_view>

#include "scenario/fields.h"

namespace simulator {

/// How a property's value is converted back.
enum class Turn {
  kPlain,          ///< by the member's own row
  kHex,            ///< hexadecimal text
  kDbm,            ///< "-52 dBm"
  kMbps,           ///< "54.0 Mbps", in bit/s
  kProfileName,    ///< a blank means an association without a profile
  kApAddress,      ///< of the association; empty or zeros without an association
  kDottedVersion,  ///< "4.0.2"
  kMilliwatts,     ///< "1.0, 5.0 mW", in dBm
  kJoined,         ///< texts, each followed by two blanks
  kReason,         ///< of an excluded network
  kProfileMode,    ///< BSS, IBSS
  kNone,           ///< shown elsewhere, or given by the position of the instance
};

struct PropertyRow {
  std::string_view property;
  Turn turn;
  const char* member;  ///< null: the member with the property's name
};

/// A class that shows one record of each adapter.
struct RecordRow {
  const char* className;
  const char* key;        ///< the property with the adapter's device id
  const char* record;     ///< the adapter's member with the record; null: the adapter itself
  const char* operation;  ///< if this call fails, the instance is missing
  bool unguarded;         ///< only an exception from it has that effect
  std::span<const PropertyRow> properties;
};

/// A class that shows the entries of a list, or profiles.
struct ListRow {
  const char* className;
  const char* member;
  const char* operation;  ///< gives the list; null for profiles
  const Table& table;
  std::span<const PropertyRow> properties;
};

/// A class that shows no record: its values are elsewhere in a scenario, or nowhere.
struct OtherRow {
  const char* className;
  std::span<const PropertyRow> properties;
};

extern const std::span<const RecordRow> kRecordClasses;
extern const std::span<const ListRow> kListClasses;
extern const ListRow& kProfileClass;
extern const std::span<const OtherRow> kOtherClasses;

}  // namespace simulator
