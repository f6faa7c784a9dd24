#pragma once

#include <string>
#include <vector>

#include "tests/classes/record_bytes.h"
#include "tests/support/provider_fixture.h"

namespace testing_support {

using Lines = std::vector<std::string>;
using Filler = HRESULT (*)(wifi::ProviderState&, IWbemClassObject*, wifi::AdapterEntry&);

/// One adapter, "7", and an instance to fill.
class FillerFixture : public StateFixture {
 protected:
  HRESULT Fill(Filler filler) {
    object = MakeObject();
    journal.Clear();
    return filler(state, object.get(), entry);
  }
  /// The puts, without the key.
  Lines Puts() const {
    Lines puts = object->ShownPuts();
    if (!puts.empty() && puts.front() == "SettingID=text:7") puts.erase(puts.begin());
    return puts;
  }
  /// The names of the attempted puts, including failing ones.
  Lines Attempts() const { return journal.Of("put "); }

  wifi::AdapterEntry& entry = AddAdapter("7", 70);
  platform::ComPtr<FakeObject> object;
};

}  // namespace testing_support
