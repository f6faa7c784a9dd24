#pragma once

#include "adapterapi/records.h"
#include "platform/short_text.h"

namespace adapterapi {

/// Six pairs of upper-case hexadecimal digits, separated by colons.
inline platform::ShortText<17> MacText(const MacAddress& mac) {
  platform::ShortText<17> text;
  text.Hex(mac[0], 2);
  for (std::size_t byte = 1; byte < sizeof(mac); ++byte) text.Add(':').Hex(mac[byte], 2);
  return text;
}

}  // namespace adapterapi
