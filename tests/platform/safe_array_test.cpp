#include "platform/safe_array.h"

#include <gtest/gtest.h>

#include "platform/variant.h"
#include "tests/platform/counted_object.h"

namespace {

using platform::Bstr;
using platform::SafeArray;
using platform::Variant;

SafeArray Make(VARTYPE type, ULONG count, LONG first) {
  SAFEARRAYBOUND bound = {count, first};
  return SafeArray(SafeArrayCreate(type, 1, &bound));
}

TEST(SafeArray, KnowsItsTypeAndBounds) {
  struct Row {
    VARTYPE type;
    ULONG size;
  };
  for (const Row& row : {Row{VT_UI1, 1}, Row{VT_I2, 2}, Row{VT_BOOL, 2}, Row{VT_I4, 4},
                         Row{VT_ERROR, 4}, Row{VT_R8, 8}, Row{VT_BSTR, 8}, Row{VT_UNKNOWN, 8}}) {
    const SafeArray array = Make(row.type, 16, -3);
    ASSERT_TRUE(array);
    VARTYPE type = VT_EMPTY;
    LONG lower = 0;
    LONG upper = 0;
    EXPECT_EQ(S_OK, SafeArrayGetVartype(array.get(), &type));
    EXPECT_EQ(S_OK, SafeArrayGetLBound(array.get(), 1, &lower));
    EXPECT_EQ(S_OK, SafeArrayGetUBound(array.get(), 1, &upper));
    EXPECT_EQ(row.type, type);
    EXPECT_EQ(row.size, array.get()->cbElements);
    EXPECT_EQ(-3, lower);
    EXPECT_EQ(12, upper);
    EXPECT_EQ(DISP_E_BADINDEX, SafeArrayGetUBound(array.get(), 2, &upper));
  }
  EXPECT_FALSE(Make(VT_EMPTY, 1, 0));
  EXPECT_FALSE(Make(77, 1, 0));
  LONG upper = 0;
  EXPECT_EQ(S_OK, SafeArrayGetUBound(Make(VT_I4, 0, 0).get(), 1, &upper));
  EXPECT_EQ(-1, upper);
}

TEST(SafeArray, CopiesTextsInAndOut) {
  const SafeArray array = Make(VT_BSTR, 2, 1);
  LONG index = 1;
  for (const OLECHAR* text : {OLESTR("old"), OLESTR("one")}) {
    const Bstr element(text);
    EXPECT_EQ(S_OK, SafeArrayPutElement(array.get(), &index, element.get()));
  }
  for (index = 0; index <= 3; index += 3) {
    EXPECT_EQ(DISP_E_BADINDEX, SafeArrayPutElement(array.get(), &index, Bstr(OLESTR("x")).get()));
    Bstr none;
    EXPECT_EQ(DISP_E_BADINDEX, SafeArrayGetElement(array.get(), &index, none.put()));
  }
  SAFEARRAY* copied = nullptr;
  ASSERT_EQ(S_OK, SafeArrayCopy(array.get(), &copied));
  const SafeArray copy(copied);
  EXPECT_EQ(S_OK, SafeArrayDestroyData(array.get()));
  EXPECT_EQ(S_OK, SafeArrayDestroyData(array.get()));
  Bstr text;
  index = 1;
  ASSERT_EQ(S_OK, SafeArrayGetElement(copy.get(), &index, text.put()));
  EXPECT_TRUE(text.view() == OLESTR("one"));
  index = 2;
  ASSERT_EQ(S_OK, SafeArrayGetElement(copy.get(), &index, text.put()));
  EXPECT_EQ(0u, text.view().size());
}

TEST(SafeArray, CountsReferencesOfItsObjects) {
  CountedObject object;
  LONG index = 0;
  {
    SafeArray array = Make(VT_UNKNOWN, 2, 0);
    EXPECT_EQ(S_OK, SafeArrayPutElement(array.get(), &index, &object));
    EXPECT_EQ(2u, object.references);
    const Variant holder = Variant::Array(std::move(array), VT_UNKNOWN);
    const Variant copy = Variant::CopyOf(holder.get());
    EXPECT_EQ(VT_ARRAY | VT_UNKNOWN, copy.type());
    EXPECT_EQ(3u, object.references);
    EXPECT_EQ(S_OK, SafeArrayPutElement(copy.get().parray, &index, nullptr));
    EXPECT_EQ(2u, object.references);
  }
  EXPECT_EQ(1u, object.references);
}

TEST(SafeArray, KeepsNumbers) {
  const SafeArray array = Make(VT_I4, 3, 0);
  for (LONG index = 0; index < 3; ++index) {
    LONG value = -index;
    EXPECT_EQ(S_OK, SafeArrayPutElement(array.get(), &index, &value));
  }
  LONG index = 2;
  LONG value = 0;
  EXPECT_EQ(S_OK, SafeArrayGetElement(array.get(), &index, &value));
  EXPECT_EQ(-2, value);
}

TEST(SafeArray, RefusesWhatIsMissingOrLocked) {
  LONG index = 0;
  SAFEARRAY* copy = reinterpret_cast<SAFEARRAY*>(&index);
  EXPECT_EQ(S_OK, SafeArrayDestroy(nullptr));
  EXPECT_EQ(S_OK, SafeArrayCopy(nullptr, &copy));
  EXPECT_EQ(nullptr, copy);
  EXPECT_EQ(E_INVALIDARG, SafeArrayDestroyData(nullptr));
  EXPECT_EQ(E_INVALIDARG, SafeArrayPutElement(nullptr, &index, &index));
  const SafeArray array = Make(VT_I4, 1, 0);
  array.get()->cLocks = 1;
  EXPECT_EQ(DISP_E_ARRAYISLOCKED, SafeArrayDestroyData(array.get()));
  EXPECT_EQ(DISP_E_ARRAYISLOCKED, SafeArrayDestroy(array.get()));
  array.get()->cLocks = 0;
}

}  // namespace
