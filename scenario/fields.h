#pragma once
// Records described as data: one row per member. Reading, checks and the reference in
// docs/scenarios.md use these rows.

#include <cstddef>
#include <cstdint>
#include <span>
#include <string_view>

namespace simulator {

/// How a member is written in JSON and stored in its record.
enum class Kind {
  kNumber,      ///< unsigned of the field's width, or a name
  kSigned,      ///< signed of the field's width
  kFlag,        ///< true, false or a number, in 32 bits
  kBits,        ///< 32 bits: a number, or an array of names
  kText,        ///< code page 1252, with a terminating zero byte in the field
  kPaddedText,  ///< code page 1252, zero-padded, may fill the field
  kMac,         ///< six bytes, "00:1A:2B:3C:4D:5E"
  kNumbers,     ///< array of unsigned 32-bit numbers
  kLevels,      ///< array of signed 32-bit numbers, counted by the 32 bits before it
  kTexts,       ///< array of texts of kTextsStep bytes, counted by the 32 bits before it
  kRecord,      ///< an object with its own rows
};

inline constexpr std::size_t kTextsStep = 50;

struct Name {
  std::string_view text;
  std::uint32_t code;
};

struct Table;

struct Field {
  const char* name;
  Kind kind;
  std::size_t offset;  ///< bytes from the start of the record
  std::size_t size;    ///< bytes
  const char* note = "";
  std::span<const Name> names = {};
  const Table* record = nullptr;
};

struct Table {
  const char* title;
  std::size_t size;  ///< bytes of the record
  std::span<const Field> fields;
};

extern const Table kAdapterTable;       ///< AdapterRecords
extern const Table kNetworkTable;       ///< adapterapi::ScanListEntry
extern const Table kExcludeEntryTable;  ///< adapterapi::ExcludeEntryRecord
extern const Table kProfileTable;       ///< ProfileRecord

}  // namespace simulator
