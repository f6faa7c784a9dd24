// Arbitrary bytes in every record, list and text of both libraries, and any status of their
// operations.

#include "fuzz/provider_world.h"
#include "tests/support/schema_objects.h"

void Fuzz_library(FuzzInput bytes) {
  const auto keys = testing_support::KeysOfAdapter7(
      {{"MacAddress", "00:00:00:00:00:00"}, {"NetworkName", ""}, {"Name", ""}});
  ByteSource source(bytes);
  ProviderWorld world(source);
  const std::string_view name =
      contract::kClasses[source.Below(std::size(contract::kClasses))].name;
  const bool discovered = source.Take<std::uint8_t>() % 4 == 0;
  world.LibrariesFromInput();
  if (discovered) world.Initialize();
  world.Enumerate(platform::WideText(std::string(name)));
  world.Get(platform::WideText(testing_support::PathOf(name, keys)));
}
