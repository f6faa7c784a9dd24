#pragma once
// Puts the members of a record of the adapter control library into properties. A class has a table
// of rows: each row is a property, and the function that reads a member of the record and puts it.
//
//     constexpr FieldRow<VersionInfoRecord> kVersionFields[] = {
//         {OLESTR("Driver"), Text<&VersionInfoRecord::driver>}, ...};
//     PutFields(writer, kVersionFields, record);

#include <cstdint>
#include <cstring>
#include <span>
#include <type_traits>

#include "adapterapi/bounded_text.h"
#include "adapterapi/mac_text.h"
#include "provider/core/code_table.h"
#include "provider/core/property_writer.h"

namespace wifi {

/// Reads a member of the record, formats it and puts it into the property.
template <class Record>
using FieldForm = HRESULT (*)(PropertyWriter&, const OLECHAR* property, const Record&);

template <class Record>
struct FieldRow {
  const OLECHAR* property;
  FieldForm<Record> put;
};

/// Puts the rows in order, under the rule of the writer.
template <class Record>
void PutFields(PropertyWriter& writer, std::type_identity_t<std::span<const FieldRow<Record>>> rows,
               const Record& record) {
  for (const FieldRow<Record>& row : rows) row.put(writer, row.property, record);
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

/// A number in a record, which need not be aligned.
template <auto Member>
auto NumberOf(const RecordOf<Member>& record) {
  typename MemberTraits<decltype(Member)>::FieldType number;
  std::memcpy(&number, &(record.*Member), sizeof(number));
  return number;
}

// The functions for FieldRow::put. The member is a template argument, as in Decimal<&Record::size>.

/// VT_BOOL: true unless the number is 0.
template <auto Member>
HRESULT Flag(PropertyWriter& writer, const OLECHAR* property, const RecordOf<Member>& record) {
  return writer.PutFlag(property, NumberOf<Member>(record));
}

/// VT_I4. A number above 0x7FFFFFFF becomes negative.
template <auto Member>
HRESULT Number(PropertyWriter& writer, const OLECHAR* property, const RecordOf<Member>& record) {
  return writer.PutNumber(property, static_cast<std::uint32_t>(NumberOf<Member>(record)));
}

/// Decimal text. A number of 32 bits is taken as signed.
template <auto Member>
HRESULT Decimal(PropertyWriter& writer, const OLECHAR* property, const RecordOf<Member>& record) {
  return writer.PutDecimal(property, static_cast<std::int32_t>(NumberOf<Member>(record)));
}

/// Upper-case hexadecimal text of four digits.
template <auto Member>
HRESULT Hex4(PropertyWriter& writer, const OLECHAR* property, const RecordOf<Member>& record) {
  return writer.PutAnsi(property, platform::ShortText<8>().Hex(NumberOf<Member>(record), 4));
}

/// Upper-case hexadecimal text of eight digits.
template <auto Member>
HRESULT Hex8(PropertyWriter& writer, const OLECHAR* property, const RecordOf<Member>& record) {
  return writer.PutAnsi(property, platform::ShortText<8>().Hex(NumberOf<Member>(record), 8));
}

/// Decimal text with the unit dBm.
template <auto Member>
HRESULT Dbm(PropertyWriter& writer, const OLECHAR* property, const RecordOf<Member>& record) {
  return writer.PutAnsi(property,
                        platform::ShortText<16>().Decimal(NumberOf<Member>(record)).Add(" dBm"));
}

/// The narrow text in a member. A text that fills the member has no terminator.
template <auto Member>
HRESULT Text(PropertyWriter& writer, const OLECHAR* property, const RecordOf<Member>& record) {
  return writer.PutAnsi(property, adapterapi::BoundedText(record.*Member));
}

template <auto Member>
HRESULT Mac(PropertyWriter& writer, const OLECHAR* property, const RecordOf<Member>& record) {
  return writer.PutAnsi(property, adapterapi::MacText(record.*Member));
}

template <auto Member, const auto& Texts, const auto& Unknown = kUnknown>
HRESULT Code(PropertyWriter& writer, const OLECHAR* property, const RecordOf<Member>& record) {
  return writer.PutAnsi(property, TextOfCode(Texts, NumberOf<Member>(record), Unknown));
}

template <auto Member, const auto& Texts, const auto& Unknown = kUnknown>
HRESULT FirstBit(PropertyWriter& writer, const OLECHAR* property, const RecordOf<Member>& record) {
  return writer.PutAnsi(property, TextOfFirstBit(Texts, NumberOf<Member>(record), Unknown));
}

}  // namespace wifi
