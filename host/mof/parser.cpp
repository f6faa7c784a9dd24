#include <algorithm>
#include <array>
#include <utility>

#include "host/mof/cim_types.h"
#include "host/mof/lexer.h"
#include "host/mof/schema.h"

namespace host {
namespace {

constexpr std::array<std::string_view, 8> kFlavors = {
    "ToInstance",      "ToSubclass", "NotToInstance", "NotToSubclass",
    "DisableOverride", "Amended",    "Restricted",    "EnableOverride"};

/// Recursive descent with one token of lookahead. The grammar nests to a fixed depth, so no text
/// can exhaust the stack.
class Parser {
 public:
  Parser(std::string_view text, const std::string& name) : lexer_(text, name) { Advance(); }

  Schema Parse() {
    while (token_.kind != Token::Kind::kEnd) {
      if (TakeIf('#')) {
        ReadPragma();
        continue;
      }
      Qualifiers qualifiers = ReadQualifiers();
      if (token_.IsName("class")) {
        ReadClass(std::move(qualifiers));
      } else if (token_.IsName("instance")) {
        ReadInstance();
      } else {
        Fail("#pragma, class or instance");
      }
    }
    return std::move(schema_);
  }

 private:
  struct Value {
    std::vector<MofScalar> scalars;
    bool isArray = false;
    bool isNull = false;
    int line = 0;
  };

  [[noreturn]] void Fail(const std::string& expected) const {
    lexer_.Fail(token_.line, expected, token_.Shown());
  }

  Token Advance() { return std::exchange(token_, lexer_.Next()); }

  bool TakeIf(char symbol) {
    if (!token_.IsSymbol(symbol)) return false;
    Advance();
    return true;
  }

  void Expect(char symbol) {
    if (!TakeIf(symbol)) Fail(std::string("'") + symbol + "'");
  }

  void ExpectWord(const std::string& word) {
    if (!token_.IsName(word)) Fail(word);
    Advance();
  }

  std::string ExpectName(const std::string& what) {
    if (token_.kind != Token::Kind::kName) Fail(what);
    return Advance().text;
  }

  /// Adjacent texts form one.
  std::string ExpectText(const std::string& what) {
    if (token_.kind != Token::Kind::kText) Fail(what);
    std::string text;
    while (token_.kind == Token::Kind::kText) text += Advance().text;
    return text;
  }

  void ReadPragma() {
    ExpectWord("pragma");
    const bool isNamespace = token_.IsName("namespace");
    const bool isFlags = token_.IsName("classflags");  // only for the compiler
    const bool isClass = token_.IsName("deleteclass");
    if (!isNamespace && !isFlags && !isClass && !token_.IsName("deleteinstance")) {
      Fail("namespace, classflags, deleteclass or deleteinstance");
    }
    Advance();
    Expect('(');
    std::string text = ExpectText("a text");
    if (isNamespace) {
      schema_.namespaceName = std::move(text);
    } else if (!isFlags) {
      Expect(',');
      ExpectWord("NOFAIL");
      (isClass ? schema_.deletedClasses : schema_.deletedInstances).push_back(std::move(text));
    }
    Expect(')');
  }

  Qualifiers ReadQualifiers() {
    Qualifiers qualifiers;
    if (!TakeIf('[')) return qualifiers;
    do {
      Qualifier& qualifier = qualifiers.list.emplace_back();
      qualifier.name = ExpectName("a qualifier's name");
      if (TakeIf('(')) {
        qualifier.values = {ReadScalar()};
        Expect(')');
      } else if (token_.IsSymbol('{')) {
        qualifier.values = ReadValue().scalars;
        qualifier.isArray = true;
      } else {
        qualifier.values = {true};
      }
      if (TakeIf(':')) ReadFlavors();
    } while (TakeIf(','));
    Expect(']');
    return qualifiers;
  }

  void ReadFlavors() {
    do {
      const bool known = std::ranges::any_of(
          kFlavors, [this](std::string_view flavor) { return token_.IsName(flavor); });
      if (!known) Fail("a flavor such as ToInstance");
      Advance();
    } while (token_.kind == Token::Kind::kName);
  }

  MofScalar ReadScalar() {
    if (token_.kind == Token::Kind::kText) return ExpectText("");
    if (token_.kind == Token::Kind::kNumber) return Advance().number;
    if (token_.IsName("TRUE") || token_.IsName("FALSE")) {
      return SameIgnoringAsciiCase(Advance().text, "TRUE");
    }
    Fail("a text, a number, TRUE or FALSE");
  }

  Value ReadValue() {
    Value value;
    value.line = token_.line;
    if (token_.IsName("NULL")) {
      Advance();
      value.isNull = true;
    } else if (TakeIf('{')) {
      value.isArray = true;
      if (TakeIf('}')) return value;
      do {
        value.scalars.push_back(ReadScalar());
      } while (TakeIf(','));
      Expect('}');
    } else {
      value.scalars.push_back(ReadScalar());
    }
    return value;
  }

  void ReadClass(Qualifiers qualifiers) {
    ClassDeclaration declaration;
    declaration.line = Advance().line;
    declaration.qualifiers = std::move(qualifiers);
    declaration.name = ExpectName("a class name");
    if (TakeIf(':')) declaration.superclass = ExpectName("a class name");
    Expect('{');
    while (!TakeIf('}')) ReadMember(declaration);
    Expect(';');
    schema_.classes.push_back(std::move(declaration));
  }

  void ReadMember(ClassDeclaration& declaration) {
    PropertyDeclaration member = ReadTypeAndName();
    if (TakeIf('(')) {
      MethodDeclaration& method = declaration.methods.emplace_back();
      method.name = std::move(member.name);
      method.returnType = member.type;
      method.qualifiers = std::move(member.qualifiers);
      method.line = member.line;
      ReadParameters(method);
    } else {
      if (member.type == CIM_EMPTY) Fail("'('");
      ReadArrayMark(member);
      if (TakeIf('=')) ReadDefault(member);
      declaration.properties.push_back(std::move(member));
    }
    Expect(';');
  }

  void ReadParameters(MethodDeclaration& method) {
    if (TakeIf(')')) return;
    do {
      PropertyDeclaration& parameter = method.parameters.emplace_back(ReadTypeAndName());
      if (parameter.type == CIM_EMPTY) Fail("a data type before the parameter's name");
      ReadArrayMark(parameter);
    } while (TakeIf(','));
    Expect(')');
  }

  /// Qualifiers, type and name, the common part of properties, methods and parameters.
  PropertyDeclaration ReadTypeAndName() {
    PropertyDeclaration declaration;
    declaration.qualifiers = ReadQualifiers();
    declaration.line = token_.line;
    const Token type = token_;
    ExpectName("a data type");
    declaration.type = CimTypeNamed(type.text);
    if (declaration.type == CIM_ILLEGAL && token_.IsName("ref")) {
      Advance();
      declaration.type = CIM_REFERENCE;
      declaration.referencedClass = type.text;
    } else if (declaration.type == CIM_ILLEGAL || declaration.type == CIM_REFERENCE) {
      lexer_.Fail(type.line, "a data type or CLASS ref", type.Shown());
    }
    declaration.name = ExpectName("a name");
    return declaration;
  }

  void ReadArrayMark(PropertyDeclaration& declaration) {
    if (!TakeIf('[')) return;
    Expect(']');
    declaration.type |= CIM_FLAG_ARRAY;
  }

  void ReadDefault(PropertyDeclaration& property) {
    Value value = ReadValue();
    if (value.isNull) return;
    const bool isArray = (property.type & CIM_FLAG_ARRAY) != 0;
    const bool fits = std::ranges::all_of(value.scalars, [&property](const MofScalar& scalar) {
      return FitsCimType(scalar, property.type);
    });
    if (value.isArray != isArray || !fits) {
      lexer_.Fail(value.line, "a value of type " + CimTypeName(property.type), "another");
    }
    property.defaultValue = std::move(value.scalars);
  }

  void ReadInstance() {
    InstanceDeclaration instance;
    instance.line = Advance().line;
    ExpectWord("of");
    instance.className = ExpectName("a class name");
    if (token_.IsName("as")) {
      Advance();
      if (token_.kind != Token::Kind::kAlias) Fail("an alias such as $name");
      instance.alias = Advance().text;
    }
    Expect('{');
    while (!TakeIf('}')) {
      std::string name = ExpectName("a property's name");
      Expect('=');
      instance.values.emplace_back(std::move(name), ReadInstanceValue());
      Expect(';');
    }
    Expect(';');
    schema_.instances.push_back(std::move(instance));
  }

  std::vector<MofScalar> ReadInstanceValue() {
    if (token_.kind != Token::Kind::kAlias) return ReadValue().scalars;
    const bool known = std::ranges::any_of(schema_.instances, [this](const auto& instance) {
      return SameIgnoringAsciiCase(instance.alias, token_.text);
    });
    if (!known) Fail("an alias of an earlier instance");
    return {Advance().text};
  }

  Lexer lexer_;
  Token token_;
  Schema schema_;
};

}  // namespace

Schema ParseMof(std::string_view text, const std::string& name) {
  return Parser(text, name).Parse();
}

}  // namespace host
