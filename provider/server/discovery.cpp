#include "provider/server/discovery.h"

#include <array>
#include <utility>
#include <vector>

#include "platform/os_version.h"
#include "platform/text.h"
#include "provider/core/format.h"
#include "provider/core/impersonation.h"
#include "provider/core/trace.h"

namespace wifi {
namespace {

using adapterapi::AdapterList;
using platform::Bstr;
using platform::ComPtr;
using platform::OleString;
using platform::OleStringView;
using platform::Variant;

// The part of a PNP device id that names the PCI bus and the maker; compared with its letter case.
constexpr OleStringView kMakersPciId = OLESTR("PCI\\VEN_7F3C&DEV");

struct Candidate {
  adapterapi::AdapterNumber number = ~adapterapi::AdapterNumber{0};
  OleString macText;
};

HRESULT OpenEnumeration(const ProviderState& state, const OLECHAR* className, LONG flags,
                        ComPtr<IEnumWbemClassObject>& enumeration) {
  const Bstr name(className);
  const HRESULT result =
      state.services->CreateInstanceEnum(name.get(), flags, nullptr, enumeration.put());
  return FAILED(result) || enumeration ? result : WBEM_E_FAILED;
}

/// What the platform makes of the interactive user: failures leave the fields empty.
void ReadInteractiveUser(ProviderState& state) {
  if (!state.services) return;
  ComPtr<IEnumWbemClassObject> systems;
  if (FAILED(OpenEnumeration(state, OLESTR("Win32_ComputerSystem"), 1, systems))) return;
  ComPtr<IWbemClassObject> system;
  ULONG returned = 0;
  const HRESULT next = systems->Next(WBEM_INFINITE, 1, system.put(), &returned);
  if (FAILED(next) || returned != 1 || !system) return;
  Variant name;
  if (FAILED(system->Get(OLESTR("UserName"), 0, name.put(), nullptr, nullptr))) return;

  const std::string text = platform::AnsiText(name.text());
  const std::size_t separator = text.rfind('\\');
  const bool split = separator != std::string::npos;
  state.encodedDomain = EncodeIdentity(split ? text.substr(0, separator) : std::string());
  state.encodedUser = EncodeIdentity(split ? text.substr(separator + 1) : text);
}

/// Asks the library for its adapters as the client; `candidates` gets those that are present.
adapterapi::ApiStatus ListCandidates(adapterapi::AdapterApi& api,
                                     std::vector<Candidate>& candidates) {
  const AdapterList* list = nullptr;
  adapterapi::ApiStatus status = 0;
  {
    const ClientImpersonation impersonation;
    status = api.GetAdapterList(&list);
  }
  api.SetLibraryMode(1);
  if (status != 0) return status;

  const std::uint32_t count = list == nullptr ? 0 : list->count;
  TraceMessage(FormatText("Number of Adapter:%d", static_cast<int>(count)));
  for (std::uint32_t index = 0; index < count; ++index) {
    const adapterapi::AdapterListRecord& record = list->records[index];
    if (record.present == 0) continue;
    candidates.push_back({record.number, platform::WideText(MacText(record.macAddress))});
  }
  return 0;
}

LONG AdapterEnumerationFlags() {
  const platform::OsVersion version = platform::QueryOsVersion();
  const bool windows2000 = version.isNt() && version.major == 5 && version.minor == 0;
  constexpr LONG kForwardOnly = WBEM_FLAG_RETURN_IMMEDIATELY | WBEM_FLAG_FORWARD_ONLY;
  return windows2000 ? kForwardOnly : kForwardOnly | WBEM_FLAG_DIRECT_READ;
}

/// The properties of a Win32_NetworkAdapter, in the order in which they are read.
struct PlatformAdapter {
  Variant deviceId, pnpDeviceId, macAddress, caption, description;

  HRESULT Read(IWbemClassObject* object) {
    const std::pair<const OLECHAR*, Variant*> properties[] = {
        {OLESTR("DeviceID"), &deviceId},       {OLESTR("PNPDeviceID"), &pnpDeviceId},
        {OLESTR("MACAddress"), &macAddress},   {OLESTR("Caption"), &caption},
        {OLESTR("Description"), &description},
    };
    HRESULT result = WBEM_S_NO_ERROR;
    for (const auto& [name, value] : properties) {
      result = object->Get(name, 0, value->put(), nullptr, nullptr);
      if (FAILED(result)) break;
    }
    return result;
  }

  bool isMakersPciDevice() const {
    return deviceId.text() != nullptr && macAddress.text() != nullptr &&
           platform::ViewOf(pnpDeviceId.text()).find(kMakersPciId) != OleStringView::npos;
  }
};

void AddServedAdapter(AdapterMap& adapters, const std::vector<Candidate>& candidates,
                      const PlatformAdapter& found) {
  if (!found.isMakersPciDevice()) return;
  const OleStringView mac = platform::ViewOf(found.macAddress.text());
  for (const Candidate& candidate : candidates) {
    if (candidate.macText != mac) continue;
    AdapterEntry entry;
    entry.deviceId = platform::ViewOf(found.deviceId.text());
    entry.macAddress = mac;
    entry.caption = platform::ViewOf(found.caption.text());
    entry.description = platform::ViewOf(found.description.text());
    entry.number = candidate.number;
    // Of two adapters with one key text the first stays.
    adapters.try_emplace(platform::AnsiText(entry.deviceId.c_str()), std::move(entry));
    return;
  }
}

HRESULT MatchPlatformAdapters(ProviderState& state, const std::vector<Candidate>& candidates) {
  ComPtr<IEnumWbemClassObject> enumeration;
  HRESULT result = OpenEnumeration(state, OLESTR("Win32_NetworkAdapter"), AdapterEnumerationFlags(),
                                   enumeration);
  if (FAILED(result)) return result;
  result = WBEM_S_NO_ERROR;
  while (SUCCEEDED(result)) {
    ComPtr<IWbemClassObject> object;
    ULONG returned = 0;
    if (enumeration->Next(WBEM_INFINITE, 1, object.put(), &returned) != 0) break;
    if (!object) continue;
    PlatformAdapter adapter;
    result = adapter.Read(object.get());
    if (SUCCEEDED(result)) AddServedAdapter(state.adapters, candidates, adapter);
  }
  return result;
}

}  // namespace

std::string EncodeIdentity(std::string_view name) {
  constexpr unsigned kMask = 0xA5;
  std::string encoded;
  for (const char character : name) {
    encoded += FormatText("%02X", static_cast<unsigned char>(character) ^ kMask);
  }
  return encoded;
}

HRESULT DiscoverAdapters(ProviderState& state) {
  ReadInteractiveUser(state);
  std::vector<Candidate> candidates;
  const adapterapi::ApiStatus listed = ListCandidates(state.api, candidates);
  if (listed != 0) return listed;
  if (!state.services) return WBEM_S_NO_ERROR;
  return MatchPlatformAdapters(state, candidates);
}

}  // namespace wifi
