// Instances with property values of any type, put to each class.

#include "fuzz/provider_world.h"
#include "schema/contract.h"

void Fuzz_put(FuzzInput bytes) {
  ByteSource source(bytes);
  ProviderWorld world(source);
  do {
    const auto& row = contract::kClasses[source.Below(std::size(contract::kClasses))];
    world.Put(std::string(row.name));
  } while (!source.empty());
}
