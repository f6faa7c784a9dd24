#pragma once
// Records of the adapter control library as properties: a class is a table of rows, each a property
// and the form that its value takes from a member of the record.

#include <cstdint>
#include <cstring>
#include <span>
#include <type_traits>

#include "adapterapi/bounded_text.h"
#include "adapterapi/mac_text.h"
#include "provider/core/code_table.h"
#include "provider/core/property_writer.h"

namespace wifi {

template <class Record>
struct FieldRow {
  const OLECHAR* property;
  platform::Variant (*value)(const Record&);
};

/// Puts the rows in order under the writer's rule.
template <class Record>
void PutFields(PropertyWriter& writer, std::type_identity_t<std::span<const FieldRow<Record>>> rows,
               const Record& record) {
  for (const FieldRow<Record>& row : rows) writer.Put(row.property, row.value(record));
}

template <class MemberPointer>
struct MemberTraits;
template <class Record, class Field>
struct MemberTraits<Field Record::*> {
  using RecordType = Record;
  using FieldType = Field;
};
template <auto Member>
using RecordOf = typename MemberTraits<decltype(Member)>::RecordType;

/// A number of a record, whatever its alignment there.
template <auto Member>
auto NumberOf(const RecordOf<Member>& record) {
  typename MemberTraits<decltype(Member)>::FieldType number;
  std::memcpy(&number, &(record.*Member), sizeof(number));
  return number;
}

// The forms. Each is named by the member that it reads, such as Decimal<&Record::size>.

/// VT_BOOL: true for anything but 0.
template <auto Member>
platform::Variant Flag(const RecordOf<Member>& record) {
  return platform::Variant::Boolean(NumberOf<Member>(record) != 0);
}

/// VT_I4: a number above 0x7FFFFFFF comes out negative.
template <auto Member>
platform::Variant Number(const RecordOf<Member>& record) {
  return platform::Variant::Integer(static_cast<LONG>(NumberOf<Member>(record)));
}

inline platform::Variant DecimalText(std::int32_t number) {
  return platform::Variant::AnsiText(platform::ShortText<16>().Decimal(number));
}

/// Decimal text; a number of 32 bits counts as signed.
template <auto Member>
platform::Variant Decimal(const RecordOf<Member>& record) {
  return DecimalText(static_cast<std::int32_t>(NumberOf<Member>(record)));
}

/// Upper-case hexadecimal text of four digits.
template <auto Member>
platform::Variant Hex4(const RecordOf<Member>& record) {
  return platform::Variant::AnsiText(platform::ShortText<8>().Hex(NumberOf<Member>(record), 4));
}

/// Upper-case hexadecimal text of eight digits.
template <auto Member>
platform::Variant Hex8(const RecordOf<Member>& record) {
  return platform::Variant::AnsiText(platform::ShortText<8>().Hex(NumberOf<Member>(record), 8));
}

/// Decimal text with the unit dBm.
template <auto Member>
platform::Variant Dbm(const RecordOf<Member>& record) {
  return platform::Variant::AnsiText(
      platform::ShortText<16>().Decimal(NumberOf<Member>(record)).Add(" dBm"));
}

/// The narrow text of a member, which may fill it without a terminator.
template <auto Member>
platform::Variant Text(const RecordOf<Member>& record) {
  return platform::Variant::AnsiText(adapterapi::BoundedText(record.*Member));
}

template <auto Member>
platform::Variant Mac(const RecordOf<Member>& record) {
  return platform::Variant::AnsiText(adapterapi::MacText(record.*Member));
}

template <auto Member, const auto& Texts, const auto& Unknown = kUnknown>
platform::Variant Code(const RecordOf<Member>& record) {
  return platform::Variant::AnsiText(TextOfCode(Texts, NumberOf<Member>(record), Unknown));
}

template <auto Member, const auto& Texts, const auto& Unknown = kUnknown>
platform::Variant FirstBit(const RecordOf<Member>& record) {
  return platform::Variant::AnsiText(TextOfFirstBit(Texts, NumberOf<Member>(record), Unknown));
}

}  // namespace wifi
