#pragma once

#include "provider/core/property_writer.h"

namespace wifi {

/// Opens the instance of one network in an adapter's list: the key and the adapter's two texts.
inline void PutAdapterTexts(PropertyWriter& writer, const AdapterEntry& adapter) {
  writer.PutKey(kSettingId, adapter.deviceId);
  writer.PutText(OLESTR("Caption"), adapter.caption);
  writer.PutText(OLESTR("Description"), adapter.description);
}

}  // namespace wifi
