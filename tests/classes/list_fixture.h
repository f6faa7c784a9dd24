#pragma once

#include "provider/core/object_path.h"
#include "tests/classes/filler_fixture.h"

namespace testing_support {

inline constexpr HRESULT kNotFound = WBEM_E_NOT_FOUND;

/// A list with an independent count, at an odd address: the library aligns nothing.
template <class Entry>
class ListBytes {
 public:
  ListBytes(std::int32_t count, const std::vector<RecordBytes<Entry>>& entries)
      : bytes_(1 + 4 + entries.size() * sizeof(Entry)) {
    std::memcpy(bytes_.data() + 1, &count, 4);
    char* next = bytes_.data() + 5;
    for (const RecordBytes<Entry>& entry : entries) {
      std::memcpy(next, &entry.record(), sizeof(Entry));
      next += sizeof(Entry);
    }
  }
  auto Getter() const {
    return [this](AdapterNumber, const LibraryList<Entry>** list) {
      *list = reinterpret_cast<const LibraryList<Entry>*>(bytes_.data() + 1);
      return 0;
    };
  }

 private:
  std::vector<char> bytes_;
};

/// One adapter with lists.
class ListFixture : public FillerFixture {
 protected:
  wifi::ParsedPath Path(const OLECHAR* key, const char* value) {
    wifi::ParsedPath path;
    path.AddKey(OLESTR("SettingID"), platform::Variant::AnsiText("7").get());
    path.AddKey(key, platform::Variant::AnsiText(value).get());
    return path;
  }
  Lines Shown() const { return sink->objects.at(0)->ShownPuts(); }
};

}  // namespace testing_support
