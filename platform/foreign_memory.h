#pragma once
// Reads memory that a library owns: the address may be null or invalid, the block may be too short.
// Where the platform has no structured exceptions, only a null address is noticed.
//
//     Entry entry;
//     std::int32_t index = 0;
//     for (; ReadListEntry(list, index, entry) == ListStep::kEntry; ++index) Deliver(entry);

#include <cstring>
#include <type_traits>

#include "platform/structured_exception.h"

namespace platform {

/// Copies one record from `theirs`. Returns false if it cannot be read.
template <class Record>
bool CopyForeign(const void* theirs, Record& ours) noexcept {
  static_assert(std::is_trivially_copyable_v<Record>);
  return theirs != nullptr && Survives([&] { std::memcpy(&ours, theirs, sizeof(ours)); });
}

enum class ListStep { kEntry, kEnd, kUnreadable };

/// Copies the entry at `index` of a list. A list is a count, followed by that many entries without
/// gaps. The count is read again at every step, because the library owns the list and may change
/// it. A null list is unreadable.
template <class Count, class Entry>
ListStep ReadListEntry(const void* list, Count index, Entry& entry) noexcept {
  static_assert(std::is_trivially_copyable_v<Entry>);
  if (list == nullptr) return ListStep::kUnreadable;
  auto step = ListStep::kEnd;
  const bool readable = Survives([&] {
    Count count;
    std::memcpy(&count, list, sizeof(count));
    if (index >= count) return;
    const auto* entries = static_cast<const unsigned char*>(list) + sizeof(count);
    std::memcpy(&entry, entries + static_cast<std::size_t>(index) * sizeof(entry), sizeof(entry));
    step = ListStep::kEntry;
  });
  return readable ? step : ListStep::kUnreadable;
}

}  // namespace platform
