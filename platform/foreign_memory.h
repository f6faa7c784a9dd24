#pragma once
// Reading memory that a library owns: it may be missing, end early, or not be there at all. Where
// the platform has no structured exceptions, only a missing address is noticed.

#include <cstring>
#include <type_traits>

#include "platform/structured_exception.h"

namespace platform {

/// Copies one record from `theirs`; false if it cannot be read.
template <class Record>
bool CopyForeign(const void* theirs, Record& ours) noexcept {
  static_assert(std::is_trivially_copyable_v<Record>);
  return theirs != nullptr && Survives([&] { std::memcpy(&ours, theirs, sizeof(ours)); });
}

enum class ListStep { kEntry, kEnd, kUnreadable };

/// Copies the entry at `index` of a list: a count, then as many entries without gaps. The count is
/// read anew at every step, as the list belongs to its library; a missing list cannot be read.
template <class Count, class Entry>
ListStep ReadListEntry(const void* list, Count index, Entry& entry) noexcept {
  Count count = 0;
  if (!CopyForeign(list, count)) return ListStep::kUnreadable;
  if (index >= count) return ListStep::kEnd;
  const auto* entries = static_cast<const unsigned char*>(list) + sizeof(count);
  return CopyForeign(entries + static_cast<std::size_t>(index) * sizeof(entry), entry)
             ? ListStep::kEntry
             : ListStep::kUnreadable;
}

}  // namespace platform
