// A value for which there is no memory is put as an error, never as another value.

#include "classes/adapter_class.h"
#include "classes/adapter_configuration.h"
#include "platform/native/observe.h"
#include "provider/server/discovery.h"
#include "tests/classes/filler_fixture.h"

namespace testing_support {
namespace {

class OutOfMemory : public FillerFixture {
 protected:
  using Enumeration = HRESULT (*)(wifi::ProviderState&, const wifi::Delivery&);

  Lines PutBy(Enumeration enumeration, int failingAllocation) {
    sink->objects.clear();
    native::FailAllocation(failingAllocation);
    const HRESULT result = enumeration(state, delivery());
    native::FailAllocation(0);
    return FAILED(result) || sink->objects.empty() ? Lines{} : sink->objects[0]->ShownPuts();
  }

  void PutsTheValueOrAnError(Enumeration enumeration) {
    const Lines untouched = PutBy(enumeration, 0);
    ASSERT_FALSE(untouched.empty());
    int errors = 0;
    for (int nth = 1; nth < 100; ++nth) {
      const Lines puts = PutBy(enumeration, nth);
      for (std::size_t put = 0; put < puts.size(); ++put) {
        const std::string name = untouched[put].substr(0, untouched[put].find('='));
        if (puts[put] == name + "=error:8007000E") {
          ++errors;
        } else {
          EXPECT_EQ(puts[put], untouched[put]) << nth;
        }
      }
    }
    EXPECT_GT(errors, 0);
  }
};

TEST_F(OutOfMemory, PathsOfAssociations) {
  PutsTheValueOrAnError(wifi::EnumerateSettingAssociations);
}

TEST_F(OutOfMemory, TextsOfRecords) {
  PutsTheValueOrAnError([](wifi::ProviderState& filled, const wifi::Delivery& to) {
    return wifi::EnumerateAdapterClass(filled, to, wifi::ClassSelector::kAssociationInfo);
  });
}

TEST_F(OutOfMemory, AClassIsNotAskedForWithoutItsName) {
  platform::ComPtr<IWbemClassObject> definition;
  native::FailAllocation(1);
  EXPECT_EQ(wifi::GetClassDefinition(state, OLESTR("WiFi_X"), nullptr, definition), E_OUTOFMEMORY);
  native::FailAllocation(0);
  EXPECT_EQ(journal.events(), Lines{});
  native::FailAllocation(1);
  EXPECT_EQ(wifi::DiscoverAdapters(state), WBEM_E_INVALID_CLASS);
  native::FailAllocation(2);
  EXPECT_EQ(wifi::DiscoverAdapters(state), E_OUTOFMEMORY);
  native::FailAllocation(0);
  EXPECT_EQ(fakeNamespace.enumerations,
            (Lines{"Win32_NetworkAdapter 230", "Win32_ComputerSystem 1"}));
}

}  // namespace
}  // namespace testing_support
