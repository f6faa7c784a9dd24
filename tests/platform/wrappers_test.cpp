#include <gtest/gtest.h>

#include <utility>

#include "platform/com_ptr.h"
#include "platform/text.h"
#include "platform/variant.h"
#include "tests/platform/counted_object.h"

namespace {

using platform::Bstr;
using Pointer = platform::ComPtr<IUnknown>;

TEST(ComPtr, KeepsOneReferenceEach) {
  CountedObject object;
  {
    Pointer first(&object);
    EXPECT_EQ(2u, object.references);
    Pointer second = first;
    EXPECT_EQ(3u, object.references);
    const Pointer third = std::move(second);
    EXPECT_FALSE(second);
    EXPECT_EQ(3u, object.references);
    first = third;
    EXPECT_EQ(3u, object.references);
    first = *&first;
    EXPECT_EQ(3u, object.references);
    EXPECT_EQ(nullptr, *first.put());
    EXPECT_EQ(2u, object.references);
    object.AddRef();
    *first.put_void() = static_cast<IUnknown*>(&object);
    EXPECT_EQ(3u, object.references);
    IUnknown* released = first.release();
    EXPECT_EQ(3u, object.references);
    first = Pointer::Adopt(released);
    EXPECT_EQ(3u, object.references);
  }
  EXPECT_EQ(1u, object.references);
}

/// Throws from AddRef and Release.
class ThrowingObject final : public CountedObject {
 public:
  int calls = 0;
  ULONG STDMETHODCALLTYPE AddRef() override { throw ++calls; }
  ULONG STDMETHODCALLTYPE Release() override { throw ++calls; }
};

TEST(ComPtr, OutlivesAnObjectThatThrows) {
  ThrowingObject object;
  {
    Pointer first(&object);
    const Pointer second = first;
    first.put();
    EXPECT_EQ(3, object.calls);
  }
  EXPECT_EQ(4, object.calls);
}

TEST(Variant, OutlivesAnObjectThatThrows) {
  ThrowingObject object;
  platform::Variant value;
  value.in_place()->vt = VT_UNKNOWN;
  value.in_place()->punkVal = &object;
  value.put();
  EXPECT_EQ(1, object.calls);
  EXPECT_EQ(VT_EMPTY, value.type());
}

TEST(Bstr, OwnsItsText) {
  Bstr text(OLESTR("text"));
  const BSTR raw = text.get();
  Bstr moved = std::move(text);
  EXPECT_EQ(raw, moved.get());
  EXPECT_FALSE(text);
  EXPECT_TRUE(moved.view() == OLESTR("text"));
  *moved.put() = SysAllocString(OLESTR("other"));
  EXPECT_EQ(5u, moved.view().size());
  EXPECT_FALSE(Bstr(static_cast<const OLECHAR*>(nullptr)));
  EXPECT_EQ(0u, SysStringLen(nullptr));

  const OLECHAR embedded[] = {'a', 0, 'b', 'c'};
  const Bstr part(platform::OleStringView(embedded, 3));
  EXPECT_EQ(3u, SysStringLen(part.get()));
  EXPECT_EQ(OLECHAR{0}, part.get()[3]);
  EXPECT_EQ(nullptr, SysAllocStringLen(nullptr, 0x7FFFFFFF));
  EXPECT_EQ(nullptr, SysAllocStringLen(nullptr, 0x80000000u));
}

TEST(Variant, IsMadeOfTextsAndNumbers) {
  using platform::Variant;
  EXPECT_TRUE(platform::ViewOf(Variant::AnsiText("\x80x").text()) == OLESTR("\u20ACx"));
  EXPECT_EQ(VT_BSTR, Variant::NoText().type());
  EXPECT_EQ(nullptr, Variant::NoText().text());
  EXPECT_NE(nullptr, Variant::AnsiText("").text());
  EXPECT_NE(nullptr, Variant::Text({}).text());
  EXPECT_EQ(VARIANT_TRUE, Variant::Boolean(true).get().boolVal);
  EXPECT_EQ(VARIANT_FALSE, Variant::Boolean(false).get().boolVal);
  EXPECT_EQ(-7, Variant::Integer(-7).get().lVal);
  EXPECT_EQ(E_FAIL, Variant::Error(E_FAIL).get().scode);
  Variant text = Variant::Text(OLESTR("held"));
  text = Variant(Variant::Integer(3));
  EXPECT_EQ(nullptr, text.text());
}

TEST(Variant, HoldsEachTextWhole) {
  const std::string longText(200, 'x');
  for (const std::string_view text :
       {std::string_view("first, and long"), std::string_view("2nd"), std::string_view(),
        std::string_view("12345678\x80"),
        std::string_view("1\xE9"
                         "345678"),
        std::string_view("12345678"), std::string_view(longText), std::string_view("\0b", 2)}) {
    using platform::Variant;
    const platform::OleString wide = platform::WideText(text);
    for (const Variant& value : {Variant::AnsiText(text), Variant::Text(wide),
                                 Variant::Owning(platform::ThroughAnsi(wide))}) {
      ASSERT_EQ(VT_BSTR, value.type());
      EXPECT_EQ(wide.size(), SysStringLen(value.text()));
      EXPECT_TRUE(wide == platform::OleStringView(value.text(), wide.size()));
      EXPECT_EQ(OLECHAR{}, value.text()[wide.size()]);
    }
  }
  // Characters that the code page lacks are converted as the platform converts them.
  EXPECT_TRUE(platform::ThroughAnsi(OLESTR("a\u0416z")).view() == OLESTR("a?z"));
}

}  // namespace
