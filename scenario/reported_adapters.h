#pragma once
// What a library of the maker reports, for a host that plays the platform.

#include <cstdint>
#include <string>
#include <vector>

namespace simulator {

/// GetAdapterList of the adapter control library, as a host looks it up.
using AdapterListGetter = std::int32_t (*)(const void** list);
extern const std::uint16_t kAdapterListOrdinal;
/// Its name on platforms where libraries have no ordinals.
inline constexpr const char* kAdapterListSymbol = "GetAdapterList";

/// The addresses of the adapters that it reports as present, "00:1A:2B:3C:4D:5E"; empty if it
/// fails.
std::vector<std::string> PresentAdapters(AdapterListGetter getter) noexcept;

}  // namespace simulator
