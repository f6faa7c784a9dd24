#include "host/service/class_object.h"

#include <gtest/gtest.h>

#include "tests/host/toy.h"

namespace host {
namespace {

using platform::ComPtr;
using platform::Variant;

class ClassObjectTest : public ::testing::Test {
 protected:
  ~ClassObjectTest() override {
    pool_.Sweep("test", defects_);
    for (const std::string& sentence : sentences_) {
      EXPECT_NE(sentence.find(" refused "), std::string::npos) << sentence;
    }
  }

  ComPtr<ClassObject> Definition(const char* name) {
    return pool_.New<ClassObject>(
        pool_, CimObject(*ToyRepository().FindClass(name), CimObject::Kind::kClass));
  }
  ComPtr<ClassObject> Instance(CimObject object) {
    return pool_.New<ClassObject>(pool_, std::move(object));
  }
  static std::string Get(IWbemClassObject* object, const OLECHAR* name) {
    Variant value;
    const HRESULT result = object->Get(name, 0, value.put(), nullptr, nullptr);
    if (FAILED(result)) return "failed";
    return value.type() == VT_NULL ? "null" : ToJson(CIM_STRING, value.get()).dump();
  }

  // The tests release all references; refused values are intended.
  std::vector<std::string> sentences_;
  Defects defects_{[this](const std::string& sentence) { sentences_.push_back(sentence); }};
  ObjectPool pool_;
};

TEST_F(ClassObjectTest, BuildsPathsFromAllKeys) {
  CimObject toy = NewInstance("Toy");
  EXPECT_EQ(Get(Instance(toy).get(), OLESTR("__PATH")), "null") << "the key has no value yet";
  Put(toy, "Id", Text(R"(a"b\c)"));
  EXPECT_EQ(toy.Path(), R"(\\.\root\cimv2:Toy.Id="a\"b\\c")");

  CimObject pair = NewInstance("Pair");
  Put(pair, "Flag", Variant::Boolean(true));
  Put(pair, "Left", Text("x"));
  EXPECT_EQ(pair.RelativePath(), std::nullopt);
  Put(pair, "Right", Variant::Integer(-3));
  EXPECT_EQ(pair.RelativePath(), R"(Pair.Left="x",Right=-3,Flag=TRUE)");
  EXPECT_EQ(NewInstance("Only").RelativePath(), "Only=@");
}

TEST_F(ClassObjectTest, ReadsSystemProperties) {
  struct Row {
    const OLECHAR* name;
    const char* ofClass;
    const char* ofInstance;
  };
  const Row rows[] = {
      {OLESTR("__CLASS"), R"("Toy")", R"("Toy")"},
      {OLESTR("__class"), R"("Toy")", R"("Toy")"},
      {OLESTR("__SUPERCLASS"), R"("Base")", R"("Base")"},
      {OLESTR("__GENUS"), "1", "2"},
      {OLESTR("__SERVER"), R"(".")", R"(".")"},
      {OLESTR("__NAMESPACE"), R"("root\\cimv2")", R"("root\\cimv2")"},
      {OLESTR("__RELPATH"), R"("Toy")", R"("Toy.Id=\"7\"")"},
      {OLESTR("__NOTHING"), "failed", "failed"},
  };
  const ComPtr<ClassObject> definition = Definition("Toy");
  const ComPtr<ClassObject> instance = Instance(NewToy("7", 1));
  for (const Row& row : rows) {
    EXPECT_EQ(Get(definition.get(), row.name), row.ofClass);
    EXPECT_EQ(Get(instance.get(), row.name), row.ofInstance);
  }
  Variant value = Text("Other");
  EXPECT_EQ(instance->Put(OLESTR("__CLASS"), 0, value.in_place(), 0), WBEM_E_READ_ONLY);
}

TEST_F(ClassObjectTest, KeepsTheOrderOfFirstPuts) {
  const ComPtr<ClassObject> toy = Instance(NewInstance("Toy"));
  Variant text = Text("x");
  Variant number = Variant::Integer(1);
  EXPECT_EQ(toy->Put(OLESTR("note"), 0, text.in_place(), 0), S_OK);
  EXPECT_EQ(toy->Put(OLESTR("Count"), 0, number.in_place(), CIM_SINT32), S_OK);
  EXPECT_EQ(toy->Put(OLESTR("Count"), 0, number.in_place(), CIM_STRING), WBEM_E_TYPE_MISMATCH);
  EXPECT_EQ(toy->Put(OLESTR("Nothing"), 0, number.in_place(), 0), WBEM_E_NOT_FOUND);
  EXPECT_EQ(toy->Put(OLESTR("Note"), 0, number.in_place(), 0), S_OK);
  EXPECT_EQ(toy->object().ToJson().dump(), R"({"Note":"1","Count":1})");

  EXPECT_EQ(toy->Delete(OLESTR("Note")), S_OK);
  EXPECT_EQ(toy->object().ToJson().dump(), R"({"Count":1})");
  EXPECT_EQ(Get(toy.get(), OLESTR("Note")), R"("none")") << "the default is back";
}

TEST_F(ClassObjectTest, EnumeratesDeclaredProperties) {
  const ComPtr<ClassObject> toy = Instance(NewToy("7", 1));
  EXPECT_EQ(toy->Next(0, nullptr, nullptr, nullptr, nullptr), WBEM_E_UNEXPECTED);
  ASSERT_EQ(toy->BeginEnumeration(WBEM_FLAG_NONSYSTEM_ONLY), S_OK);
  std::string names;
  while (true) {
    platform::Bstr name;
    Variant value;
    CIMTYPE type = 0;
    const HRESULT result = toy->Next(0, name.put(), value.put(), &type, nullptr);
    if (result == WBEM_S_NO_MORE_DATA) break;
    ASSERT_EQ(result, S_OK);
    names += platform::Utf8Text(name.view()) + ":" + CimTypeName(type) + " ";
  }
  EXPECT_EQ(names,
            "Id:string On:boolean Count:sint32 Small:uint8 Big:uint32 Tags:string[] Note:string ");
}

TEST_F(ClassObjectTest, SpawnsAndClonesIndependentObjects) {
  const ComPtr<ClassObject> definition = Definition("Toy");
  ComPtr<IWbemClassObject> instance;
  ASSERT_EQ(definition->SpawnInstance(0, instance.put()), S_OK);
  Variant text = Text("1");
  EXPECT_EQ(definition->Put(OLESTR("Id"), 0, text.in_place(), 0), WBEM_E_NOT_SUPPORTED);
  ASSERT_EQ(instance->Put(OLESTR("Id"), 0, text.in_place(), 0), S_OK);
  ComPtr<IWbemClassObject> copy;
  ASSERT_EQ(instance->Clone(copy.put()), S_OK);
  Variant other = Text("2");
  ASSERT_EQ(copy->Put(OLESTR("Id"), 0, other.in_place(), 0), S_OK);
  EXPECT_EQ(Get(instance.get(), OLESTR("Id")), R"("1")");
  EXPECT_EQ(instance->InheritsFrom(OLESTR("BASE")), S_OK);
  EXPECT_EQ(instance->InheritsFrom(OLESTR("Pair")), S_FALSE);
  ComPtr<IWbemClassObject> never;
  EXPECT_EQ(instance->SpawnInstance(0, never.put()), WBEM_E_NOT_SUPPORTED);
  platform::Bstr mof;
  ASSERT_EQ(instance->GetObjectText(0, mof.put()), S_OK);
  EXPECT_EQ(platform::Utf8Text(mof.view()),
            "instance of Toy\n{\n\tId = \"1\";\n\tNote = \"none\";\n};\n");
}

TEST_F(ClassObjectTest, GivesTheSignaturesOfMethods) {
  const ComPtr<ClassObject> definition = Definition("Toy");
  ComPtr<IWbemClassObject> in;
  ComPtr<IWbemClassObject> out;
  ASSERT_EQ(definition->GetMethod(OLESTR("reset"), 0, in.put(), out.put()), S_OK);
  EXPECT_EQ(ClassObject::From(in.get())->object().info().PropertyNames(), "Why, Level");
  EXPECT_EQ(ClassObject::From(out.get())->object().info().PropertyNames(), "Echo, ReturnValue");
  ASSERT_EQ(definition->GetMethod(OLESTR("Stop"), 0, in.put(), nullptr), S_OK);
  EXPECT_FALSE(in) << "no in-parameters, no in-signature";
  EXPECT_EQ(definition->GetMethod(OLESTR("Start"), 0, in.put(), out.put()), WBEM_E_NOT_FOUND);
}

TEST_F(ClassObjectTest, AFailedMethodMayAnswerFalseForANumber) {
  ClassInfo signature;
  signature.declaration.properties.resize(1);
  signature.declaration.properties[0].name = "ReturnValue";
  signature.declaration.properties[0].type = CIM_SINT32;
  const ComPtr<ClassObject> out = Instance(CimObject(signature));
  Variant answer = Variant::Boolean(false);
  EXPECT_EQ(out->Put(OLESTR("ReturnValue"), 0, answer.in_place(), 0), WBEM_E_TYPE_MISMATCH);
  EXPECT_TRUE(out->complaints().empty());
  answer = Variant::Boolean(true);
  EXPECT_EQ(out->Put(OLESTR("ReturnValue"), 0, answer.in_place(), 0), WBEM_E_TYPE_MISMATCH);
  EXPECT_EQ(out->complaints().size(), 1u);
  EXPECT_EQ(out->object().ToJson().dump(), "{}");
}

TEST(PathClassName, IsWhatStandsBetweenNamespaceAndKeys) {
  const std::pair<const char*, const char*> rows[] = {
      {"Toy", "Toy"},
      {R"(Toy.Id="a")", "Toy"},
      {R"(\\.\root\cimv2:Toy.Id="x:y.z")", "Toy"},
      {R"(\\.\root\cimv2:Only=@)", "Only"},
      {R"(Toy="7")", "Toy"},
      {"Toy.Id='x:y.z'", "Toy"},
      {"", ""},
  };
  for (const auto& [path, name] : rows) EXPECT_EQ(ClassNameOfPath(path), name) << path;
}

}  // namespace
}  // namespace host
