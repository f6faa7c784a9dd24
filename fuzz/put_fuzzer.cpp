// Instances with property values of any type, put to each class that can be updated.

#include "fuzz/provider_world.h"

void Fuzz_put(FuzzInput bytes) {
  static constexpr const char* kClasses[] = {
      "WiFi_NetworkAdapter", "WiFi_NetworkAdapterConfiguration", "WiFi_AdapterChannel",
      "WiFi_SystemPolicies", "WiFi_NetworkAdapterSetting",       "WiFi_AdapterVersion"};
  ByteSource source(bytes);
  ProviderWorld world(source);
  do {
    world.Put(kClasses[source.Below(std::size(kClasses))]);
  } while (!source.empty());
}
