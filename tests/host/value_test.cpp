#include "host/service/value.h"

#include <gtest/gtest.h>

#include "tests/host/toy.h"

namespace host {
namespace {

using platform::Variant;

Variant Unsigned(ULONG number) {
  Variant value = Variant::Integer(0);
  value.in_place()->vt = VT_UI4;
  value.in_place()->ulVal = number;
  return value;
}

TEST(Value, PutsWhatFitsTheDeclaredTypeAndRefusesTheRest) {
  constexpr HRESULT kMismatch = WBEM_E_TYPE_MISMATCH;
  constexpr HRESULT kRange = WBEM_E_VALUE_OUT_OF_RANGE;
  struct Row {
    const char* property;
    Variant value;
    HRESULT result;
    const char* json;  // the property's value afterwards
  };
  Row rows[] = {
      {"Id", Text("a"), S_OK, R"("a")"},
      {"Id", Variant::NoText(), S_OK, R"("")"},
      {"Id", Empty(VT_NULL), S_OK, "null"},
      {"Id", Variant::Integer(-11), S_OK, R"("-11")"},
      {"Id", Variant::Boolean(true), kMismatch, "null"},
      {"Id", Variant::Error(E_OUTOFMEMORY), kMismatch, "null"},
      {"Id", Empty(VT_EMPTY), kMismatch, "null"},
      {"Note", Variant::Error(E_OUTOFMEMORY), kMismatch, R"("none")"},
      {"Note", Empty(VT_NULL), S_OK, "null"},
      {"On", Variant::Boolean(true), S_OK, "true"},
      {"On", Variant::Integer(1), kMismatch, "null"},
      {"On", Text("true"), kMismatch, "null"},
      {"Count", Variant::Integer(-5), S_OK, "-5"},
      {"Count", Unsigned(0x7FFFFFFF), S_OK, "2147483647"},
      {"Count", Variant::Integer(-2147483647 - 1), S_OK, "-2147483648"},
      {"Count", Unsigned(0x80000000), kRange, "null"},
      {"Count", Text("5"), kMismatch, "null"},
      {"Count", Variant::Boolean(true), kMismatch, "null"},
      {"Small", Variant::Integer(0), S_OK, "0"},
      {"Small", Variant::Integer(255), S_OK, "255"},
      {"Small", Variant::Integer(256), kRange, "null"},
      {"Small", Variant::Integer(-1), kRange, "null"},
      {"Big", Variant::Integer(-1), S_OK, "4294967295"},
      {"Tags", Text("a"), kMismatch, "null"},
      {"Tags", FromTypedText(CIM_STRING | CIM_FLAG_ARRAY, "a,b"), S_OK, R"(["a","b"])"},
      {"Tags", FromTypedText(CIM_SINT32 | CIM_FLAG_ARRAY, "1,2"), kMismatch, "null"},
      {"Tags", FromTypedText(CIM_STRING | CIM_FLAG_ARRAY, ""), S_OK, "[]"},
  };
  for (const Row& row : rows) {
    SCOPED_TRACE(std::string(row.property) + " of VARIANT type " +
                 std::to_string(row.value.type()) + " -> " + row.json);
    CimObject toy = NewInstance("Toy");
    EXPECT_EQ(Put(toy, row.property, row.value), row.result);
    const std::size_t index = *toy.info().FindProperty(row.property);
    EXPECT_EQ(ToJson(toy.info().declaration.properties[index].type, toy.Value(index)).dump(),
              row.json);
    EXPECT_EQ(toy.order().empty(), FAILED(row.result)) << "a refused value counts as not put";
  }
}

TEST(Value, ReadsTypedText) {
  struct Row {
    CIMTYPE type;
    const char* text;
    const char* json;
  };
  constexpr Row kRows[] = {
      {CIM_STRING, "a, b", R"("a, b")"},
      {CIM_STRING, "", R"("")"},
      {CIM_BOOLEAN, "TRUE", "true"},
      {CIM_BOOLEAN, "false", "false"},
      {CIM_SINT32, "-2147483648", "-2147483648"},
      {CIM_UINT32, "4294967295", "4294967295"},
      {CIM_SINT16, "-32768", "-32768"},
      {CIM_SINT32, "NULL", "null"},
      {CIM_SINT32 | CIM_FLAG_ARRAY, "1,2", "[1,2]"},
      {CIM_BOOLEAN | CIM_FLAG_ARRAY, "true,false", "[true,false]"},
  };
  for (const Row& row : kRows) {
    EXPECT_EQ(ToJson(row.type, FromTypedText(row.type, row.text).get()).dump(), row.json);
  }
}

TEST(Value, SaysWhatATypeTakes) {
  struct Row {
    CIMTYPE type;
    const char* text;
    const char* accepted;
  };
  constexpr Row kRows[] = {
      {CIM_BOOLEAN, "1", "true or false"},
      {CIM_SINT32, "2147483648", "from -2147483648 to 2147483647"},
      {CIM_SINT32, "", "a whole number"},
      {CIM_SINT32, "5x", "a whole number"},
      {CIM_UINT8, "-1", "from 0 to 255"},
      {CIM_SINT32 | CIM_FLAG_ARRAY, "1,,2", "a whole number"},
  };
  for (const Row& row : kRows) {
    try {
      FromTypedText(row.type, row.text);
      ADD_FAILURE() << row.text << " was accepted";
    } catch (const ValueError& error) {
      EXPECT_NE(std::string(error.what()).find(row.accepted), std::string::npos) << error.what();
    }
  }
}

}  // namespace
}  // namespace host
