// Every method with in-parameters of any type.

#include "fuzz/provider_world.h"
#include "tests/support/schema_objects.h"

void Fuzz_method(FuzzInput bytes) {
  const auto keys =
      testing_support::KeysOfAdapter7({{"NetworkName", "Guests"}, {"Name", "Office"}});
  ByteSource source(bytes);
  ProviderWorld world(source);
  if (source.Take<std::uint8_t>() % 2 != 0) world.LibrariesFromInput();
  do {
    const auto& row = contract::kMethods[source.Below(std::size(contract::kMethods))];
    world.Method(platform::WideText(testing_support::PathOf(row.className, keys)),
                 platform::WideText(std::string(row.name)));
  } while (!source.empty());
}
