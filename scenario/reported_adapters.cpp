#include "scenario/reported_adapters.h"

#include <string_view>

#include "adapterapi/mac_text.h"
#include "platform/foreign_memory.h"

namespace simulator {
namespace {

struct Ordinal {
  std::string_view operation;
  std::uint16_t ordinal;
};
constexpr Ordinal kOrdinals[] = {
#define QUARN_OPERATION(ordinal, name, parameters, arguments) {#name, ordinal},
#include "adapterapi/operations.inc"
#undef QUARN_OPERATION
};

constexpr std::uint16_t OrdinalOf(std::string_view operation) {
  for (const Ordinal& row : kOrdinals) {
    if (row.operation == operation) return row.ordinal;
  }
  return 0;
}
static_assert(OrdinalOf("GetAdapterList") != 0);

}  // namespace

const std::uint16_t kAdapterListOrdinal = OrdinalOf("GetAdapterList");

std::vector<std::string> PresentAdapters(AdapterListGetter getter) noexcept {
  std::vector<std::string> addresses;
  const void* list = nullptr;
  std::int32_t status = -1;
  if (!platform::Survives([&] { status = getter(&list); }) || status != 0) return addresses;
  adapterapi::AdapterListRecord record;
  for (std::uint32_t index = 0;
       platform::ReadListEntry(list, index, record) == platform::ListStep::kEntry; ++index) {
    if (record.present != 0) {
      addresses.emplace_back(std::string_view(adapterapi::MacText(record.macAddress)));
    }
  }
  return addresses;
}

}  // namespace simulator
