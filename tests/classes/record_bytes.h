#pragma once

#include <cstdint>
#include <cstring>
#include <string_view>

namespace testing_support {

/// A record written at byte offsets, as the library writes it, without the product's fields.
template <class Record>
class RecordBytes {
 public:
  RecordBytes() { std::memset(&record_, 0, sizeof(record_)); }

  /// A little-endian number with the width of Number.
  template <class Number>
  RecordBytes& At(std::size_t offset, Number number) {
    return Bytes(offset, {reinterpret_cast<const char*>(&number), sizeof(number)});
  }
  RecordBytes& Bytes(std::size_t offset, std::string_view bytes) {
    std::memcpy(reinterpret_cast<char*>(&record_) + offset, bytes.data(), bytes.size());
    return *this;
  }
  RecordBytes& Fill(std::size_t offset, std::size_t size, char byte) {
    std::memset(reinterpret_cast<char*>(&record_) + offset, byte, size);
    return *this;
  }
  operator const Record&() const { return record_; }
  const Record& record() const { return record_; }

 private:
  Record record_;
};

}  // namespace testing_support
