#pragma once

#include "provider/core/property_writer.h"

namespace wifi {

/// Puts the first properties of a list entry: the key, the caption and the description of the
/// adapter.
inline void PutAdapterTexts(PropertyWriter& writer, const AdapterEntry& adapter) {
  writer.PutKey(kSettingId, adapter.deviceId);
  writer.PutText(OLESTR("Caption"), adapter.caption);
  writer.PutText(OLESTR("Description"), adapter.description);
}

}  // namespace wifi
