#include "host/service/class_object.h"

#include <algorithm>
#include <utility>

#include "host/service/result_text.h"
#include "platform/text.h"

namespace host {
namespace {

using platform::Variant;

constexpr HRESULT kNoSuchMember = WBEM_E_NOT_FOUND;

// Queries an object for its host object; no other component knows this interface.
constexpr IID kIidHostObject = {
    0x6b1c0a52, 0x3a0e, 0x4d7c, {0x9a, 0x41, 0x5e, 0x0d, 0x33, 0x1c, 0x72, 0x88}};

std::string NameText(LPCWSTR name) {
  return platform::Utf8Text(platform::ViewOf(name));
}

Variant TextValue(const std::optional<std::string>& text) {
  if (text) return Variant::Text(platform::WideFromUtf8(*text));
  Variant null;
  null.in_place()->vt = VT_NULL;
  return null;
}

struct SystemProperty {
  const char* name;
  CIMTYPE type;
  Variant (*read)(const CimObject& object);
};

constexpr LONG kGenusClass = 1;
constexpr LONG kGenusInstance = 2;

const SystemProperty kSystemProperties[] = {
    {"__GENUS", CIM_SINT32,
     [](const CimObject& object) {
       return Variant::Integer(object.IsClass() ? kGenusClass : kGenusInstance);
     }},
    {"__CLASS", CIM_STRING,
     [](const CimObject& object) { return TextValue(object.info().name()); }},
    {"__SUPERCLASS", CIM_STRING,
     [](const CimObject& object) {
       const std::string& superclass = object.info().declaration.superclass;
       return superclass.empty() ? TextValue(std::nullopt) : TextValue(superclass);
     }},
    {"__PROPERTY_COUNT", CIM_SINT32,
     [](const CimObject& object) {
       return Variant::Integer(static_cast<LONG>(object.info().declaration.properties.size()));
     }},
    {"__RELPATH", CIM_STRING,
     [](const CimObject& object) { return TextValue(object.RelativePath()); }},
    {"__SERVER", CIM_STRING, [](const CimObject&) { return TextValue("."); }},
    {"__NAMESPACE", CIM_STRING,
     [](const CimObject& object) {
       const std::string& path = object.info().namespacePath;  // \\server\namespace
       const std::size_t server = path.find('\\', 2);
       return server == std::string::npos ? TextValue(std::nullopt)
                                          : TextValue(path.substr(server + 1));
     }},
    {"__PATH", CIM_STRING, [](const CimObject& object) { return TextValue(object.Path()); }},
};

const SystemProperty* FindSystemProperty(const std::string& name) {
  if (!name.starts_with("__")) return nullptr;
  const auto* found = std::ranges::find_if(kSystemProperties, [&](const SystemProperty& row) {
    return SameIgnoringAsciiCase(row.name, name);
  });
  return found == std::end(kSystemProperties) ? nullptr : found;
}

/// If the library raises an exception in a method, the method returns FALSE, whatever the type of
/// its ReturnValue: the contract requires it, and a class that declares a number has no value then.
bool IsFixedFailure(LPCWSTR name, const VARIANT* value) {
  return value != nullptr && value->vt == VT_BOOL && value->boolVal == VARIANT_FALSE &&
         SameIgnoringAsciiCase(NameText(name), "ReturnValue");
}

template <class Interface>
HRESULT RefuseSet(Interface** result) {
  if (result != nullptr) *result = nullptr;
  return kNotSupported;
}

}  // namespace

ClassObject::ClassObject(ObjectPool& pool, CimObject object)
    : ComObject((object.IsClass() ? "the class definition " : "an instance of ") +
                object.info().name()),
      pool_(pool),
      object_(std::move(object)) {}

ClassObject* ClassObject::From(IWbemClassObject* object) {
  void* found = nullptr;
  if (object == nullptr || FAILED(object->QueryInterface(kIidHostObject, &found))) return nullptr;
  return static_cast<ClassObject*>(found);
}

HRESULT ClassObject::QueryInterface(REFIID iid, void** object) {
  if (object != nullptr && IsEqualIID(iid, kIidHostObject)) {
    *object = this;
    return S_OK;
  }
  return ComObject::QueryInterface(iid, object);
}

HRESULT ClassObject::Get(LPCWSTR name, LONG flags, VARIANT* value, CIMTYPE* type, LONG* flavor) {
  if (name == nullptr || flags != 0) return kInvalidParameter;
  const std::string key = NameText(name);
  Variant copy;
  CIMTYPE declared = CIM_EMPTY;
  const SystemProperty* system = FindSystemProperty(key);
  if (system != nullptr) {
    copy = system->read(object_);
    declared = system->type;
  } else {
    const std::optional<std::size_t> index = object_.info().FindProperty(key);
    if (!index) return kNoSuchMember;
    copy = Variant::CopyOf(object_.Value(*index));
    declared = object_.info().declaration.properties[*index].type;
  }
  if (copy.type() == VT_ERROR) return WBEM_E_OUT_OF_MEMORY;
  if (value != nullptr) {
    // The caller's VARIANT is an out-parameter: it may be uninitialised and is not read.
    VariantInit(value);
    std::swap(*value, *copy.in_place());
  }
  if (type != nullptr) *type = declared;
  if (flavor != nullptr) {
    *flavor = system != nullptr ? WBEM_FLAVOR_ORIGIN_SYSTEM : WBEM_FLAVOR_ORIGIN_LOCAL;
  }
  return S_OK;
}

HRESULT ClassObject::Put(LPCWSTR name, LONG flags, VARIANT* value, CIMTYPE type) {
  if (name == nullptr || flags != 0) return kInvalidParameter;
  const HRESULT result = TryPut(NameText(name), value, type);
  if (FAILED(result) && !IsFixedFailure(name, value)) {
    Complain("refused " + NameText(name) + ": " + DescribeResult(result));
  }
  return result;
}

HRESULT ClassObject::TryPut(const std::string& key, VARIANT* value, CIMTYPE type) {
  if (FindSystemProperty(key) != nullptr) return WBEM_E_READ_ONLY;
  const std::optional<std::size_t> index = object_.info().FindProperty(key);
  if (!index) return kNoSuchMember;
  if (object_.IsClass()) return kNotSupported;
  if (type != 0 && type != object_.info().declaration.properties[*index].type) {
    return WBEM_E_TYPE_MISMATCH;
  }
  if (value == nullptr) return object_.Put(*index, TextValue(std::nullopt).get());
  return object_.Put(*index, *value);
}

HRESULT ClassObject::Delete(LPCWSTR name) {
  if (name == nullptr) return kInvalidParameter;
  const std::optional<std::size_t> index = object_.info().FindProperty(NameText(name));
  if (!index) return kNoSuchMember;
  if (object_.IsClass()) return kNotSupported;
  object_.Reset(*index);
  return S_OK;
}

bool ClassObject::NamesFor(LONG flags, std::vector<std::string>* names) const {
  if (flags != 0 && flags != WBEM_FLAG_NONSYSTEM_ONLY) return false;
  if (flags == 0) {
    for (const SystemProperty& row : kSystemProperties) names->emplace_back(row.name);
  }
  for (const PropertyDeclaration& property : object_.info().declaration.properties) {
    names->push_back(property.name);
  }
  return true;
}

HRESULT ClassObject::GetNames(LPCWSTR qualifier, LONG flags, VARIANT*, SAFEARRAY** names) {
  if (names == nullptr) return kInvalidParameter;
  *names = nullptr;
  std::vector<std::string> list;
  if (qualifier != nullptr || !NamesFor(flags, &list)) return kNotSupported;
  SAFEARRAYBOUND bound = {static_cast<ULONG>(list.size()), 0};
  platform::SafeArray array(SafeArrayCreate(VT_BSTR, 1, &bound));
  if (!array) return E_OUTOFMEMORY;
  for (LONG index = 0; index < static_cast<LONG>(list.size()); ++index) {
    const platform::Bstr name(platform::WideFromUtf8(list[static_cast<std::size_t>(index)]));
    const HRESULT result = SafeArrayPutElement(array.get(), &index, name.get());
    if (FAILED(result)) return result;
  }
  *names = array.release();
  return S_OK;
}

HRESULT ClassObject::BeginEnumeration(LONG flags) {
  std::vector<std::string> names;
  if (!NamesFor(flags, &names)) return kNotSupported;
  enumerated_ = std::move(names);
  next_ = 0;
  enumerating_ = true;
  return S_OK;
}

HRESULT ClassObject::Next(LONG flags, BSTR* name, VARIANT* value, CIMTYPE* type, LONG* flavor) {
  if (flags != 0) return kInvalidParameter;
  if (!enumerating_) return WBEM_E_UNEXPECTED;
  if (next_ == enumerated_.size()) return WBEM_S_NO_MORE_DATA;
  platform::Bstr text(platform::WideFromUtf8(enumerated_[next_]));
  if (!text) return E_OUTOFMEMORY;
  const HRESULT result = Get(text.get(), 0, value, type, flavor);
  if (FAILED(result)) return result;
  ++next_;
  if (name != nullptr) *name = text.release();
  return S_OK;
}

HRESULT ClassObject::EndEnumeration() {
  enumerating_ = false;
  return S_OK;
}

HRESULT ClassObject::Clone(IWbemClassObject** copy) {
  if (copy == nullptr) return kInvalidParameter;
  *copy = pool_.New<ClassObject>(pool_, object_).release();
  return S_OK;
}

HRESULT ClassObject::GetObjectText(LONG, BSTR* text) {
  if (text == nullptr) return kInvalidParameter;
  *text = platform::Bstr(platform::WideFromUtf8(object_.Text())).release();
  return *text == nullptr ? E_OUTOFMEMORY : S_OK;
}

HRESULT ClassObject::SpawnInstance(LONG flags, IWbemClassObject** instance) {
  if (instance == nullptr || flags != 0) return kInvalidParameter;
  *instance = nullptr;
  if (!object_.IsClass()) return kNotSupported;
  *instance = pool_.New<ClassObject>(pool_, CimObject(object_.info())).release();
  return S_OK;
}

HRESULT ClassObject::GetPropertyOrigin(LPCWSTR name, BSTR* className) {
  if (name == nullptr || className == nullptr) return kInvalidParameter;
  *className = nullptr;
  if (!object_.info().FindProperty(NameText(name))) return kNoSuchMember;
  *className = platform::Bstr(platform::WideFromUtf8(object_.info().name())).release();
  return *className == nullptr ? E_OUTOFMEMORY : S_OK;
}

HRESULT ClassObject::InheritsFrom(LPCWSTR ancestor) {
  if (ancestor == nullptr) return kInvalidParameter;
  const std::string name = NameText(ancestor);
  const bool inherits = SameIgnoringAsciiCase(object_.info().name(), name) ||
                        std::ranges::any_of(object_.info().ancestors, [&](const std::string& each) {
                          return SameIgnoringAsciiCase(each, name);
                        });
  return inherits ? S_OK : S_FALSE;
}

platform::ComPtr<ClassObject> ClassObject::Definition(const ClassInfo* signature) const {
  if (signature == nullptr) return nullptr;
  return pool_.New<ClassObject>(pool_, CimObject(*signature, CimObject::Kind::kClass));
}

HRESULT ClassObject::GetMethod(LPCWSTR name, LONG flags, IWbemClassObject** in,
                               IWbemClassObject** out) {
  if (in != nullptr) *in = nullptr;
  if (out != nullptr) *out = nullptr;
  if (name == nullptr || flags != 0) return kInvalidParameter;
  if (!object_.IsClass()) return kNotSupported;
  const MethodInfo* method = object_.info().FindMethod(NameText(name));
  if (method == nullptr) return kNoSuchMember;
  if (in != nullptr) *in = Definition(method->in.get()).release();
  if (out != nullptr) *out = Definition(method->out.get()).release();
  return S_OK;
}

HRESULT ClassObject::GetQualifierSet(IWbemQualifierSet** set) {
  return RefuseSet(set);
}
HRESULT ClassObject::GetPropertyQualifierSet(LPCWSTR, IWbemQualifierSet** set) {
  return RefuseSet(set);
}
HRESULT ClassObject::GetMethodQualifierSet(LPCWSTR, IWbemQualifierSet** set) {
  return RefuseSet(set);
}
HRESULT ClassObject::SpawnDerivedClass(LONG, IWbemClassObject** derived) {
  return RefuseSet(derived);
}
HRESULT ClassObject::CompareTo(LONG, IWbemClassObject*) {
  return kNotSupported;
}
HRESULT ClassObject::PutMethod(LPCWSTR, LONG, IWbemClassObject*, IWbemClassObject*) {
  return kNotSupported;
}
HRESULT ClassObject::DeleteMethod(LPCWSTR) {
  return kNotSupported;
}
HRESULT ClassObject::BeginMethodEnumeration(LONG) {
  return kNotSupported;
}
HRESULT ClassObject::NextMethod(LONG, BSTR* name, IWbemClassObject** in, IWbemClassObject** out) {
  if (name != nullptr) *name = nullptr;
  if (in != nullptr) *in = nullptr;
  return RefuseSet(out);
}
HRESULT ClassObject::EndMethodEnumeration() {
  return kNotSupported;
}
HRESULT ClassObject::GetMethodOrigin(LPCWSTR, BSTR* className) {
  return RefuseSet(className);
}

}  // namespace host
