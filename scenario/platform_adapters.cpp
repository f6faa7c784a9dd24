#include <algorithm>

#include "adapterapi/mac_text.h"
#include "scenario/hex.h"
#include "scenario/sections.h"

namespace simulator {

std::vector<PlatformAdapter> PlatformAdaptersOf(std::span<const Adapter> adapters) {
  // A machine usually has a few other network adapters with lower ids.
  constexpr std::size_t kFirstDeviceId = 7;
  const std::string description = "Orvel Wireless LAN Adapter";
  std::vector<PlatformAdapter> objects;
  for (const Adapter& adapter : adapters) {
    const adapterapi::DeviceInfoRecord& device = adapter.records.device;
    const std::string deviceId = std::to_string(kFirstDeviceId + objects.size());
    PlatformAdapter& object = objects.emplace_back();
    object.deviceId = deviceId;
    object.pnpDeviceId = "PCI\\VEN_7F3C&DEV_" + UpperHex(device.deviceId, 4) + "&SUBSYS_" +
                         UpperHex(device.subsystemId, 4) + UpperHex(device.subsystemVendorId, 4) +
                         "&REV_" + UpperHex(device.revisionId, 2) + "\\4&" + deviceId;
    object.macAddress = std::string_view(adapterapi::MacText(adapter.records.mac));
    object.caption = "[" + std::string(8 - std::min<std::size_t>(8, deviceId.size()), '0') +
                     deviceId + "] " + description;
    object.description = description;
  }
  return objects;
}

}  // namespace simulator
