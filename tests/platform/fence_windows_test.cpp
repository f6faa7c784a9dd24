#include <gtest/gtest.h>

#include "platform/structured_exception.h"
#include "platform/variant.h"

namespace {

struct Counter {
  int* count;
  ~Counter() { ++*count; }
};

int ReadNowhere() {
  int* volatile nowhere = nullptr;
  return *static_cast<volatile int*>(nowhere);
}

int RaiseNumbered(DWORD code) {
  RaiseException(code, 0, 0, nullptr);
  return 0;
}

// Whether the fence converts a structured exception into its C++ exception; the object outside the
// fence must be destroyed during unwinding.
template <class Call>
bool Stops(Call call) {
  int destroyed = 0;
  try {
    const Counter counter{&destroyed};
    platform::CallFenced(call);
  } catch (const platform::StructuredException&) {
    return destroyed == 1;
  }
  return false;
}

TEST(StructuredFence, StopsAllKindsTimeAfterTime) {
  for (DWORD i = 0; i < 1000; ++i) {
    ASSERT_TRUE(Stops([] { return ReadNowhere(); }));
    ASSERT_TRUE(Stops([i] { return RaiseNumbered(0xE0000001u + i); }));
  }
}

/// Raises an exception when its value is requested.
class RaisingValue final : public IDispatch {
 public:
  virtual ~RaisingValue() = default;
  HRESULT STDMETHODCALLTYPE QueryInterface(REFIID, void**) override { return E_NOINTERFACE; }
  ULONG STDMETHODCALLTYPE AddRef() override { return 1; }
  ULONG STDMETHODCALLTYPE Release() override { return 1; }
  HRESULT STDMETHODCALLTYPE GetTypeInfoCount(UINT*) override { return E_NOTIMPL; }
  HRESULT STDMETHODCALLTYPE GetTypeInfo(UINT, LCID, ITypeInfo**) override { return E_NOTIMPL; }
  HRESULT STDMETHODCALLTYPE GetIDsOfNames(REFIID, LPOLESTR*, UINT, LCID, DISPID*) override {
    return E_NOTIMPL;
  }
  HRESULT STDMETHODCALLTYPE Invoke(DISPID, REFIID, LCID, WORD, DISPPARAMS*, VARIANT*, EXCEPINFO*,
                                   UINT*) override {
    return ReadNowhere();
  }
};

TEST(StructuredFence, HoldsAroundTheObjectOfAValue) {
  RaisingValue object;
  platform::Variant value;
  value.in_place()->vt = VT_DISPATCH;
  value.in_place()->pdispVal = &object;
  EXPECT_EQ(value.ChangeType(VT_I4), DISP_E_TYPEMISMATCH);
  EXPECT_EQ(value.type(), VT_DISPATCH);
}

TEST(StructuredFence, Nests) {
  EXPECT_TRUE(Stops([] {
    EXPECT_TRUE(Stops([] { return RaiseNumbered(0xE1234567u); }));
    return RaiseNumbered(0xE7654321u);
  }));
  // Outside the inner fence it is already a C++ exception.
  EXPECT_TRUE(Stops([] { platform::CallFenced([] { return RaiseNumbered(0xE0000009u); }); }));
}

}  // namespace
