#include "provider/server/discovery.h"

#include <array>
#include <utility>
#include <vector>

#include "adapterapi/mac_text.h"
#include "platform/foreign_memory.h"
#include "platform/os_version.h"
#include "platform/short_text.h"
#include "platform/text.h"
#include "provider/core/impersonation.h"
#include "provider/core/instance.h"
#include "provider/core/trace.h"

namespace wifi {
namespace {

using adapterapi::AdapterList;
using platform::Bstr;
using platform::ComPtr;
using platform::ListStep;
using platform::OleString;
using platform::OleStringView;
using platform::Variant;

// The part of a PNP device id that names the PCI bus and the maker. Case-sensitive.
constexpr OleStringView kMakersPciId = OLESTR("PCI\\VEN_7F3C&DEV");

// An enumerator that keeps succeeding without an object must not block the service forever.
constexpr int kMostEmptyAnswers = 10000;

struct Candidate {
  adapterapi::AdapterNumber number = ~adapterapi::AdapterNumber{0};
  platform::ShortText<17> macText;
};

HRESULT OpenEnumeration(const ProviderState& state, const OLECHAR* className, LONG flags,
                        ComPtr<IEnumWbemClassObject>& enumeration) {
  const Bstr name(className);
  if (!name) return E_OUTOFMEMORY;
  IEnumWbemClassObject** place = enumeration.put();
  const HRESULT result = platform::CallFenced(
      [&] { return state.services->CreateInstanceEnum(name.get(), flags, nullptr, place); });
  return FAILED(result) || enumeration ? result : WBEM_E_FAILED;
}

HRESULT ReadNext(IEnumWbemClassObject& enumeration, ComPtr<IWbemClassObject>& object,
                 ULONG& returned) {
  IWbemClassObject** place = object.put();
  returned = 0;
  return platform::CallFenced([&] { return enumeration.Next(WBEM_INFINITE, 1, place, &returned); });
}

/// Stores the interactive user that the platform reports. After a failure the fields are empty.
void ReadInteractiveUser(ProviderState& state) {
  state.memory.encodedDomain.clear();
  state.memory.encodedUser.clear();
  if (!state.services) return;
  ComPtr<IEnumWbemClassObject> systems;
  if (FAILED(OpenEnumeration(state, OLESTR("Win32_ComputerSystem"), 1, systems))) return;
  ComPtr<IWbemClassObject> system;
  ULONG returned = 0;
  const HRESULT next = ReadNext(*systems.get(), system, returned);
  if (FAILED(next) || returned != 1 || !system) return;
  Variant name;
  if (FAILED(GetPropertyValue(*system.get(), OLESTR("UserName"), name))) return;

  const std::string text = platform::AnsiText(name.text());
  const std::size_t separator = text.rfind('\\');
  const bool split = separator != std::string::npos;
  state.memory.encodedDomain = EncodeIdentity(split ? text.substr(0, separator) : std::string());
  state.memory.encodedUser = EncodeIdentity(split ? text.substr(separator + 1) : text);
}

/// Asks the library for its adapters, as the client. Adds those that are present to `candidates`,
/// as far as the table can be read.
adapterapi::ApiStatus ListCandidates(adapterapi::AdapterApi& api,
                                     std::vector<Candidate>& candidates, bool& complete) {
  const AdapterList* list = nullptr;
  adapterapi::ApiStatus status = 0;
  {
    const ClientImpersonation impersonation;
    status = api.GetAdapterList(&list);
  }
  api.SetLibraryMode(adapterapi::FixedNumber{1});
  if (status != 0) return status;

  std::int32_t count = 0;
  platform::CopyForeign(list, count);
  TraceMessage(platform::ShortText<32>().Add("Number of Adapter:").Decimal(count).c_str());
  adapterapi::AdapterListRecord record;
  ListStep step = ListStep::kEntry;
  for (std::uint32_t index = 0;
       (step = platform::ReadListEntry(list, index, record)) == ListStep::kEntry; ++index) {
    if (record.present == 0) continue;
    candidates.push_back({record.number, adapterapi::MacText(record.macAddress)});
  }
  complete = step == ListStep::kEnd;
  return 0;
}

LONG AdapterEnumerationFlags() {
  const platform::OsVersion version = platform::QueryOsVersion();
  const bool windows2000 = version.IsNt() && version.major == 5 && version.minor == 0;
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
      result = GetPropertyValue(*object, name, *value);
      if (FAILED(result)) break;
    }
    return result;
  }

  bool IsMakersPciDevice() const {
    return deviceId.text() != nullptr && macAddress.text() != nullptr &&
           platform::ViewOf(pnpDeviceId.text()).find(kMakersPciId) != OleStringView::npos;
  }
};

void AddServedAdapter(AdapterMap& adapters, const std::vector<Candidate>& candidates,
                      const PlatformAdapter& found) {
  if (!found.IsMakersPciDevice()) return;
  const OLECHAR* mac = found.macAddress.text();
  for (const Candidate& candidate : candidates) {
    if (!platform::EqualsAscii(mac, candidate.macText)) continue;
    AdapterEntry entry;
    entry.deviceId = platform::ViewOf(found.deviceId.text());
    entry.macAddress = mac;
    entry.caption = platform::ViewOf(found.caption.text());
    entry.description = platform::ViewOf(found.description.text());
    entry.number = candidate.number;
    entry.key = platform::AnsiText(entry.deviceId.c_str());
    // If two adapters have the same key, the first one is kept.
    adapters.try_emplace(entry.key, std::move(entry));
    return;
  }
}

HRESULT MatchPlatformAdapters(ProviderState& state, const std::vector<Candidate>& candidates) {
  ComPtr<IEnumWbemClassObject> enumeration;
  HRESULT result = OpenEnumeration(state, OLESTR("Win32_NetworkAdapter"), AdapterEnumerationFlags(),
                                   enumeration);
  if (FAILED(result)) return result;
  result = WBEM_S_NO_ERROR;
  for (int empty = 0; SUCCEEDED(result);) {
    ComPtr<IWbemClassObject> object;
    ULONG returned = 0;
    if (ReadNext(*enumeration.get(), object, returned) != 0) break;
    if (!object) {
      if (++empty == kMostEmptyAnswers) return WBEM_E_FAILED;
      continue;
    }
    PlatformAdapter adapter;
    result = adapter.Read(object.get());
    if (SUCCEEDED(result)) AddServedAdapter(*state.adapters, candidates, adapter);
  }
  return result;
}

}  // namespace

std::string EncodeIdentity(std::string_view name) {
  constexpr unsigned kMask = 0xA5;
  std::string encoded;
  for (const char character : name) {
    encoded += platform::ShortText<2>().Hex(static_cast<unsigned char>(character) ^ kMask, 2);
  }
  return encoded;
}

HRESULT DiscoverAdapters(ProviderState& state) {
  ReadInteractiveUser(state);
  std::vector<Candidate> candidates;
  bool complete = true;
  const adapterapi::ApiStatus listed = ListCandidates(state.api, candidates, complete);
  if (listed != 0) return listed;
  const HRESULT matched =
      state.services ? MatchPlatformAdapters(state, candidates) : WBEM_S_NO_ERROR;
  return FAILED(matched) || complete ? matched : WBEM_E_FAILED;
}

}  // namespace wifi
