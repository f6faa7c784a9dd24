// Lists that end before their count says, at a page that cannot be read.

#include "classes/exclude_list.h"
#include "classes/scan_lists.h"
#include "tests/classes/list_fixture.h"
#include "tests/support/last_bytes.h"

namespace testing_support {
namespace {

class UnreadableLists : public ListFixture {
 protected:
  template <class Entry>
  auto Gives(const void* list) {
    return [list](AdapterNumber, const LibraryList<Entry>** given) {
      *given = static_cast<const LibraryList<Entry>*>(list);
      return 0;
    };
  }
};

TEST_F(UnreadableLists, WhatCanBeReadIsDeliveredAndTheRestEndsTheWalk) {
  AddAdapter("8", 80);
  std::vector<char> bytes(4 + 2 * sizeof(ScanListEntry));
  const std::int32_t count = 100;
  std::memcpy(bytes.data(), &count, sizeof(count));
  // Two whole entries, the second one short of a byte, a truncated count, no memory at all.
  const struct {
    std::size_t readable;
    std::size_t delivered;
  } kRows[] = {{bytes.size(), 2}, {bytes.size() - 1, 1}, {4, 0}, {3, 0}, {0, 0}};
  for (const auto& row : kRows) {
    const LastBytes list(bytes.data(), row.readable);
    api.onGetAvailableNetworks = Gives<ScanListEntry>(list.get());
    api.onGetExcludeList = Gives<ExcludeEntryRecord>(list.get());
    for (int round = 0; round < 2; ++round) {
      sink->objects.clear();
      EXPECT_EQ(wifi::EnumerateAvailableNetworks(state, delivery()), kNotFound);
      EXPECT_EQ(sink->objects.size(), row.delivered) << row.readable;
    }
    EXPECT_EQ(wifi::EnumerateExcludeList(state, delivery()), kNotFound);
    EXPECT_EQ(wifi::GetExcludeListObject(state, delivery(), Path(OLESTR("NetworkName"), "absent")),
              kNotFound);
  }
}

}  // namespace
}  // namespace testing_support
