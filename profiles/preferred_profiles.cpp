#include "profiles/preferred_profiles.h"

#include "profiles/feature_set.h"
#include "profiles/profile_library.h"
#include "provider/core/code_table.h"
#include "provider/core/impersonation.h"
#include "provider/core/property_writer.h"
#include "provider/core/trace.h"

namespace wifi {
namespace {

constexpr CodeText kModes[] = {{1, "BSS"}, {2, "IBSS"}};

constexpr CodeText kAuthentications[] = {{1, "Open"}, {2, "Shared"}};

constexpr platform::OleStringView kCaption = OLESTR("Preferred Profile List");
constexpr platform::OleStringView kDescription =
    OLESTR("Provides the list of all Preferred Profiles");

struct Store {
  platform::OleStringView type;
  bool StoreGates::*gate;  ///< null: always open
  ULONG flag;
  bool searched;  ///< whether a get by key searches it

  bool IsOpen(const StoreGates& gates) const { return gate == nullptr || gates.*gate; }
};

// In the order in which the stores are enumerated.
constexpr Store kStores[] = {
    {OLESTR("user"), nullptr, 1, true},
    {OLESTR("persistent"), &StoreGates::persistent, 2, true},
    {OLESTR("prelogon"), &StoreGates::prelogon, 4, true},
    // Compatibility: these are enumerated, but not found by key.
    {OLESTR("postlogon"), nullptr, 8, false},
    {OLESTR("itprofile"), nullptr, 16, false},
};

// The most profiles that are read from one store, because a library that never reports the end must
// not block the service forever. A search by name does not even stop at an error status.
constexpr int kMostSteps = 10000;

/// A text of the profile, owned by the library; data() is null if it has none. Its length is
/// measured inside the fence too.
std::string_view HeldText(PreferredProfile& profile,
                          const char* (CPreferredProfile::*getter)() const) {
  return profile.Call([&](const CPreferredProfile& held) {
    const char* text = (held.*getter)();
    return text == nullptr ? std::string_view() : std::string_view(text);
  });
}

void PutText(PropertyWriter& writer, const OLECHAR* property, PreferredProfile& profile,
             const char* (CPreferredProfile::*getter)() const) {
  const std::string_view text = HeldText(profile, getter);
  if (text.data() == nullptr) {
    writer.Put(property, platform::Variant::NoText());
  } else {
    writer.PutAnsi(property, text);
  }
}

template <class Code>
void PutCode(PropertyWriter& writer, const OLECHAR* property, PreferredProfile& profile,
             Code (CPreferredProfile::*getter)() const, std::span<const CodeText> rows) {
  const Code code = profile.Call([&](const CPreferredProfile& held) { return (held.*getter)(); });
  writer.PutAnsi(property, TextOfCode(rows, static_cast<std::uint32_t>(code), kUnknown));
}

void FillPreferredProfile(PropertyWriter& writer, PreferredProfile& profile,
                          platform::OleStringView storeType) {
  PutText(writer, OLESTR("Name"), profile, &CPreferredProfile::Name);
  PutText(writer, OLESTR("SSID"), profile, &CPreferredProfile::Ssid);
  PutText(writer, OLESTR("MandatoryAp"), profile, &CPreferredProfile::MandatoryAp);
  PutCode(writer, OLESTR("OperationMode"), profile, &CPreferredProfile::OpMode, kModes);
  const LONG stealth = profile.Call([](const CPreferredProfile& held) { return held.Stealth(); });
  writer.PutFlag(OLESTR("Stealth"), static_cast<std::uint32_t>(stealth));
  PutCode(writer, OLESTR("Encryption"), profile, &CPreferredProfile::WepAlgorithm,
          adapterapi::codes::kEncryptions);
  PutCode(writer, OLESTR("Authentication"), profile, &CPreferredProfile::AuthMode,
          kAuthentications);
  writer.PutText(OLESTR("Caption"), kCaption);
  writer.PutText(OLESTR("Description"), kDescription);
  writer.PutText(OLESTR("Type"), storeType);
}

/// The session with the library that both routines share.
struct ProfileRequest {
  ProviderState& state;
  const Delivery& delivery;
  PreferredProfile profile = {};
  ProfileLibrary library = {};
  StoreGates gates = ReadStoreGates(state.api);
  PropertyWriter writer{PutRule::kStopAtFailure};

  HRESULT Deliver(const Store& store, platform::ComPtr<IWbemClassObject>& instance) {
    const auto fill = [&](IWbemClassObject* made) {
      writer.Begin(made);
      FillPreferredProfile(writer, profile, store.type);
      return writer.result();
    };
    return DeliverInstance(state, delivery, OLESTR("WiFi_PreferredProfile"), fill, instance);
  }

  HRESULT List() {
    HRESULT result = WBEM_S_NO_ERROR;
    if (!library.Open()) return result;
    for (const Store& store : kStores) {
      if (!store.IsOpen(gates)) continue;
      LONG status = library.GetFirst(profile, store.flag);
      for (int step = 0; step < kMostSteps && status == kTolvaSuccess; ++step) {
        platform::ComPtr<IWbemClassObject> instance;  // released after the next profile is loaded
        result = Deliver(store, instance);
        status = library.GetNext(profile, store.flag);
      }
    }
    library.Close();
    return result;
  }

  HRESULT Find(const std::string& name) {
    TraceMessage("Opening");
    HRESULT result = WBEM_E_NOT_FOUND;
    if (!library.Open()) return result;
    TraceMessage("Getting");
    for (const Store& store : kStores) {
      if (!store.searched || !store.IsOpen(gates)) continue;
      if (!LoadNamed(store, name)) continue;
      platform::ComPtr<IWbemClassObject> instance;
      result = Deliver(store, instance);
      break;
    }
    library.Close();
    return result;
  }

 private:
  bool LoadNamed(const Store& store, const std::string& name) {
    LONG status = library.GetFirst(profile, store.flag);
    for (int step = 0; step < kMostSteps && status != kTolvaNoMoreProfiles; ++step) {
      const std::string_view held = HeldText(profile, &CPreferredProfile::Name);
      if (held.data() != nullptr && name == held) return true;
      status = library.GetNext(profile, store.flag);
    }
    return false;
  }
};

}  // namespace

HRESULT EnumeratePreferredProfiles(ProviderState& state, const Delivery& delivery) {
  if (state.initialized == 0) return E_FAIL;
  TraceMessage("Getting preferred profile information for WiFi_PreferredProfile");
  std::optional<ClientImpersonation> client(std::in_place);
  ProfileRequest request{state, delivery};
  const HRESULT result = request.List();
  client.reset();  // the objects of the library are destroyed without impersonation
  return result;
}

HRESULT GetPreferredProfile(ProviderState& state, const Delivery& delivery,
                            const ParsedPath& path) {
  if (state.initialized == 0) return E_FAIL;
  const std::string name = PathKeyText(path, OLESTR("Name"));
  return ProfileRequest{state, delivery}.Find(name);
}

}  // namespace wifi
