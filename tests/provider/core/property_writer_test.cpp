#include "provider/core/property_writer.h"

#include <gtest/gtest.h>

#include "tests/support/fake_wbem.h"

namespace wifi {
namespace {

/// Keeps a copy of each text that is put, and changes the value in different ways.
class TakingInstance final : public testing_support::UnusedClassObject {
 public:
  explicit TakingInstance(void (*take)(VARIANT&)) : take_(take) {}
  std::vector<std::string> texts;

  HRESULT STDMETHODCALLTYPE Put(LPCWSTR, LONG, VARIANT* value, CIMTYPE) override {
    texts.push_back(testing_support::Shown(*value));
    take_(*value);
    return S_OK;
  }

 private:
  void (*take_)(VARIANT&);
};

TEST(PropertyWriter, AnInstanceMayTakeAValueOver) {
  for (void (*take)(VARIANT&) : {
           +[](VARIANT& value) { VariantClear(&value); },
           +[](VARIANT& value) {  // of equal length, perhaps at the same address
             const UINT length = SysStringLen(value.bstrVal);
             VariantClear(&value);
             value.vt = VT_BSTR;
             value.bstrVal = SysAllocStringLen(nullptr, length);
           },
           +[](VARIANT& value) {
             VariantClear(&value);
             value.vt = VT_I4;
           },
       }) {
    TakingInstance instance(take);
    PropertyWriter writer(&instance, PutRule::kStopAtFailure);
    writer.PutKey(OLESTR("Key"), OLESTR("key"));
    writer.PutAnsi(OLESTR("Short"), "a");
    writer.PutAnsi(OLESTR("Long"), std::string(100, 'b'));
    writer.PutText(OLESTR("Wide"), OLESTR("wide"));
    EXPECT_EQ(instance.texts,
              (std::vector<std::string>{"text:key", "text:a", "text:" + std::string(100, 'b'),
                                        "text:wide"}));
    EXPECT_EQ(writer.result(), S_OK);
  }
}

}  // namespace
}  // namespace wifi
