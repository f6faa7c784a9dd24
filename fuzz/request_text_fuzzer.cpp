// Any text as a query, a class name or a path: each request sets exactly one status.

#include "fuzz/provider_world.h"

void Fuzz_request_text(FuzzInput bytes) {
  ByteSource source(bytes);
  const platform::OleString text = source.TextToTheEnd();
  ProviderWorld world(source);
  const platform::Bstr given(text.c_str());
  world.Enumerate(text);
  world.Get(text);
  world.Request([&](IWbemServices& services, IWbemObjectSink* sink) {
    return services.ExecQueryAsync(nullptr, given.get(), 0, nullptr, sink);
  });
  world.Request([&](IWbemServices& services, IWbemObjectSink* sink) {
    return services.DeleteInstanceAsync(given.get(), 0, nullptr, sink);
  });
  world.Method(text, OLESTR("IsAssociated"));
  world.Method(OLESTR("WiFi_NetworkAdapter.DeviceID=\"7\""), text);
}
