// A program with a value of each type that the debugger's printers show.

#include "provider/core/adapter_map.h"

extern "C" __attribute__((noinline)) int Stop() {
  return 0;
}

int main() {
  const platform::Bstr text(OLESTR("Caf\u00E9 \"5 GHz\""));
  const platform::Bstr nullText;
  const platform::Variant empty;
  const platform::Variant number = platform::Variant::Integer(-60);
  const platform::Variant flag = platform::Variant::Boolean(true);
  const platform::Variant failure = platform::Variant::Error(E_OUTOFMEMORY);
  SAFEARRAYBOUND bound = {16, 0};
  const platform::Variant array =
      platform::Variant::Array(platform::SafeArray(SafeArrayCreate(VT_BSTR, 1, &bound)), VT_BSTR);
  wifi::AdapterEntry entry;
  entry.key = "7";
  entry.macAddress = OLESTR("02:00:00:00:00:01");
  entry.number = 3;
  entry.work = platform::Variant::Text(OLESTR("work"));
  return Stop();
}
