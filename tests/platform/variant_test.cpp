#include "platform/variant.h"

#include <gtest/gtest.h>

#include <sstream>
#include <string>

#include "platform/text.h"
#include "tests/platform/counted_object.h"

namespace {

using platform::Variant;

// A value, or the failure with which it ended, in the notation of the rows below.
std::string Describe(const VARIANT& value) {
  std::ostringstream text;
  switch (value.vt) {
    case VT_EMPTY:
      return "empty";
    case VT_NULL:
      return "null";
    case VT_I2:
      text << "I2 " << value.iVal;
      break;
    case VT_I4:
      text << "I4 " << value.lVal;
      break;
    case VT_R8:
      text << "R8 " << value.dblVal;
      break;
    case VT_BSTR:
      text << "'" << platform::AnsiText(value.bstrVal) << "'";
      break;
    case VT_BOOL:
      text << "BOOL " << value.boolVal;
      break;
    case VT_UI1:
      text << "UI1 " << int{value.bVal};
      break;
    case VT_UI2:
      text << "UI2 " << value.uiVal;
      break;
    case VT_UI4:
      text << "UI4 " << value.ulVal;
      break;
    case VT_UNKNOWN:
      return "object";
    default:
      text << "vt " << value.vt;
      break;
  }
  return text.str();
}

std::string Changed(Variant& source, VARTYPE type) {
  const std::string before = Describe(source.get());
  const HRESULT result = source.ChangeType(type);
  if (SUCCEEDED(result)) return Describe(source.get());
  EXPECT_EQ(before, Describe(source.get())) << "a failure must leave the value";
  return result == DISP_E_OVERFLOW       ? "overflow"
         : result == DISP_E_TYPEMISMATCH ? "mismatch"
         : result == DISP_E_BADVARTYPE   ? "bad type"
                                         : "another failure";
}

Variant Make(VARTYPE type, double number) {
  Variant variant;
  VARIANT& value = *variant.put();
  value.vt = type;
  switch (type) {
    case VT_I2:
      value.iVal = static_cast<SHORT>(number);
      break;
    case VT_BOOL:
      value.boolVal = static_cast<VARIANT_BOOL>(number);
      break;
    case VT_I4:
      value.lVal = static_cast<LONG>(number);
      break;
    case VT_ERROR:
      value.scode = static_cast<SCODE>(number);
      break;
    case VT_R8:
      value.dblVal = number;
      break;
    case VT_UI1:
      value.bVal = static_cast<BYTE>(number);
      break;
    case VT_UI2:
      value.uiVal = static_cast<USHORT>(number);
      break;
    case VT_UI4:
      value.ulVal = static_cast<ULONG>(number);
      break;
    default:
      break;
  }
  return variant;
}

TEST(Variant, ChangesNumbers) {
  struct Row {
    VARTYPE from;
    double number;
    VARTYPE to;
    const char* expected;
  };
  const Row rows[] = {
      {VT_EMPTY, 0, VT_I4, "I4 0"},
      {VT_EMPTY, 0, VT_BSTR, "''"},
      {VT_EMPTY, 0, VT_BOOL, "BOOL 0"},
      {VT_NULL, 0, VT_I4, "mismatch"},
      {VT_NULL, 0, VT_EMPTY, "mismatch"},
      {VT_NULL, 0, VT_NULL, "null"},
      {VT_I2, -32768, VT_I4, "I4 -32768"},
      {VT_I2, -1, VT_UI1, "overflow"},
      {VT_I2, -1, VT_UI2, "UI2 65535"},
      {VT_I2, -1, VT_UI4, "overflow"},
      {VT_I4, -1, VT_UI4, "UI4 4294967295"},
      {VT_I4, -1, VT_UI2, "overflow"},
      {VT_I4, 70000, VT_I2, "overflow"},
      {VT_I4, 255, VT_UI1, "UI1 255"},
      {VT_I4, 256, VT_UI1, "overflow"},
      {VT_I4, -2147483648.0, VT_BSTR, "'-2147483648'"},
      {VT_I4, 5, VT_BOOL, "BOOL -1"},
      {VT_I4, 5, VT_EMPTY, "empty"},
      {VT_I4, 5, VT_NULL, "null"},
      {VT_I4, 5, VT_UNKNOWN, "mismatch"},
      {VT_I4, 5, VT_ERROR, "mismatch"},
      {VT_I4, 5, VARTYPE{VT_ARRAY | VT_I4}, "mismatch"},
      {VT_I4, 5, VARTYPE{77}, "bad type"},
      {VT_UI1, 255, VT_I2, "I2 255"},
      {VT_UI2, 65535, VT_I4, "I4 65535"},
      {VT_UI4, 4294967295.0, VT_R8, "R8 4.29497e+09"},
      {VT_UI4, 4294967295.0, VT_BSTR, "'4294967295'"},
      {VT_R8, 0.5, VT_I4, "I4 0"},
      {VT_R8, 1.5, VT_I4, "I4 2"},
      {VT_R8, 2.5, VT_UI1, "UI1 2"},
      {VT_R8, -0.6, VT_I4, "I4 -1"},
      {VT_R8, -0.6, VT_UI4, "overflow"},
      {VT_R8, 2147483647.4, VT_I4, "I4 2147483647"},
      {VT_R8, 2147483647.5, VT_I4, "overflow"},
      {VT_R8, 255.5, VT_UI1, "overflow"},
      {VT_R8, 1e300, VT_I4, "overflow"},
      {VT_R8, 0.5, VT_BOOL, "BOOL -1"},
      {VT_R8, 3.14, VT_BSTR, "'3.14'"},
      {VT_R8, 1.0 / 3, VT_BSTR, "'0.333333333333333'"},
      {VT_R8, 1e20, VT_BSTR, "'1E+20'"},
      {VT_R8, 5.6789e-12, VT_BSTR, "'5.6789E-12'"},
      {VT_BOOL, -1, VT_BSTR, "'-1'"},
      {VT_BOOL, 0, VT_BSTR, "'0'"},
      {VT_BOOL, -1, VT_I4, "I4 -1"},
      {VT_BOOL, -1, VT_UI1, "UI1 255"},
      {VT_BOOL, -1, VT_UI4, "UI4 4294967295"},
      {VT_ERROR, 5, VT_I4, "mismatch"},
      {VT_UNKNOWN, 0, VT_BSTR, "mismatch"},
      {VT_UNKNOWN, 0, VT_UNKNOWN, "object"},
  };
  for (const Row& row : rows) {
    SCOPED_TRACE(&row - rows);
    Variant value = Make(row.from, row.number);
    EXPECT_EQ(row.expected, Changed(value, row.to));
  }
}

TEST(Variant, ChangesTexts) {
  struct Row {
    const char* text;
    VARTYPE to;
    const char* expected;
  };
  const Row rows[] = {
      {"12", VT_I4, "I4 12"},
      {" \t12\n", VT_I4, "I4 12"},
      {"\xA0"
       "12\xA0",
       VT_I4, "I4 12"},
      {"+12", VT_I4, "I4 12"},
      {"- 12", VT_I4, "I4 -12"},
      {"12-", VT_I4, "I4 -12"},
      {"1,000", VT_I4, "I4 1000"},
      {",1", VT_I4, "mismatch"},
      {"1.5", VT_I4, "I4 2"},
      {"2.5", VT_I4, "I4 2"},
      {".5", VT_R8, "R8 0.5"},
      {"5.", VT_I4, "I4 5"},
      {".", VT_I4, "mismatch"},
      {"", VT_I4, "mismatch"},
      {" ", VT_I4, "mismatch"},
      {"1e3", VT_I4, "I4 1000"},
      {"25e-1", VT_R8, "R8 2.5"},
      {"1e", VT_I4, "mismatch"},
      {"1e 3", VT_I4, "mismatch"},
      {"1e400", VT_R8, "overflow"},
      {"INF", VT_R8, "mismatch"},
      {"0x10", VT_I4, "mismatch"},
      {"12abc", VT_I4, "mismatch"},
      {"1 2", VT_I4, "mismatch"},
      {"--1", VT_I4, "mismatch"},
      {"1.5.2", VT_I4, "mismatch"},
      {"\xE9", VT_I4, "mismatch"},
      {"2147483647", VT_I4, "I4 2147483647"},
      {"2147483648", VT_I4, "overflow"},
      {"-2147483648", VT_I4, "I4 -2147483648"},
      {"4294967295", VT_UI4, "UI4 4294967295"},
      {"-1", VT_UI4, "overflow"},
      {"99999999999999999999", VT_I4, "overflow"},
      {"256", VT_UI1, "overflow"},
      {"&H1f", VT_I4, "I4 31"},
      {" &h1F ", VT_UI1, "UI1 31"},
      {"&HFFFF", VT_I4, "I4 65535"},
      {"&HFFFF", VT_I2, "I2 -1"},
      {"&HFFFFFFFF", VT_I4, "I4 -1"},
      {"&H100000000", VT_I4, "overflow"},
      {"&O17", VT_I4, "I4 15"},
      {"&H", VT_I4, "mismatch"},
      {"&HG", VT_I4, "mismatch"},
      {"&H 10", VT_I4, "mismatch"},
      {"True", VT_BOOL, "BOOL -1"},
      {"fALSE", VT_BOOL, "BOOL 0"},
      {"#TRUE#", VT_BOOL, "BOOL -1"},
      {"#true#", VT_BOOL, "mismatch"},
      {"True ", VT_BOOL, "mismatch"},
      {"0.0", VT_BOOL, "BOOL 0"},
      {"-0.1", VT_BOOL, "BOOL -1"},
      {"yes", VT_BOOL, "mismatch"},
      {"True", VT_I4, "mismatch"},
      {"12", VT_UNKNOWN, "mismatch"},
      {"12", VT_ERROR, "mismatch"},
      {"12", VT_EMPTY, "empty"},
      {"same", VT_BSTR, "'same'"},
  };
  for (const Row& row : rows) {
    SCOPED_TRACE(row.text);
    Variant value = Variant::AnsiText(row.text);
    EXPECT_EQ(row.expected, Changed(value, row.to));
  }
  Variant missing = Variant::NoText();
  EXPECT_EQ("mismatch", Changed(missing, VT_I4));
  EXPECT_EQ(nullptr, missing.text());
}

TEST(Variant, CopiesEveryType) {
  for (const VARTYPE type :
       {VT_EMPTY, VT_NULL, VT_I2, VT_I4, VT_R8, VT_BOOL, VT_ERROR, VT_UI1, VT_UI2, VT_UI4}) {
    const Variant source = Make(type, 7);
    const Variant copy = Variant::CopyOf(source.get());
    EXPECT_EQ(type, copy.type());
    EXPECT_EQ(Describe(source.get()), Describe(copy.get()));
  }
  const OLECHAR embedded[] = {'a', 0, 'b'};
  const Variant text = Variant::Text(platform::OleStringView(embedded, 3));
  const Variant copy = Variant::CopyOf(text.get());
  ASSERT_NE(nullptr, copy.text());
  EXPECT_NE(text.text(), copy.text());
  EXPECT_EQ(3u, SysStringLen(copy.text()));
  EXPECT_EQ(OLECHAR{'b'}, copy.text()[2]);

  VARIANT unknown = {};
  unknown.vt = 77;
  Variant refused = Variant::CopyOf(unknown);
  EXPECT_EQ(VT_ERROR, refused.type());
  EXPECT_EQ(DISP_E_BADVARTYPE, refused.get().scode);
  EXPECT_EQ(DISP_E_BADVARTYPE, VariantClear(&unknown));
}

TEST(Variant, SharesObjectsAndReplacesWhatItHeld) {
  CountedObject object;
  {
    Variant holder;
    VARIANT& value = *holder.put();
    value.vt = VT_UNKNOWN;
    value.punkVal = &object;
    object.AddRef();
    Variant copy = Variant::CopyOf(holder.get());
    EXPECT_EQ(3u, object.references);
    EXPECT_EQ(S_OK, VariantCopy(copy.in_place(), copy.in_place()));
    EXPECT_EQ(3u, object.references);
    copy = Variant::Integer(1);
    EXPECT_EQ(2u, object.references);
    EXPECT_EQ(VT_EMPTY, holder.put()->vt);
    EXPECT_EQ(1u, object.references);
  }
  EXPECT_EQ(1u, object.references);
}

}  // namespace
