#include "host/service/namespace.h"

#include <algorithm>
#include <iterator>
#include <utility>

#include "host/service/class_object.h"
#include "platform/text.h"

namespace host {
namespace {

class InstanceEnumerator final : public ComObject<IEnumWbemClassObject, IID_IEnumWbemClassObject> {
 public:
  InstanceEnumerator(ObjectPool& pool, std::vector<CimObject> instances)
      : ComObject("an enumerator"), pool_(pool), instances_(std::move(instances)) {}

  HRESULT STDMETHODCALLTYPE Reset() override {
    next_ = 0;
    return S_OK;
  }
  HRESULT STDMETHODCALLTYPE Next(LONG, ULONG count, IWbemClassObject** objects,
                                 ULONG* returned) override {
    if (objects == nullptr || returned == nullptr) return kInvalidParameter;
    *returned = 0;
    while (*returned < count && next_ < instances_.size()) {
      objects[(*returned)++] = pool_.New<ClassObject>(pool_, instances_[next_++]).release();
    }
    return *returned == count ? WBEM_S_NO_ERROR : WBEM_S_FALSE;
  }
  HRESULT STDMETHODCALLTYPE NextAsync(ULONG, IWbemObjectSink*) override { return kNotSupported; }
  HRESULT STDMETHODCALLTYPE Clone(IEnumWbemClassObject** copy) override {
    if (copy != nullptr) *copy = nullptr;
    return kNotSupported;
  }
  HRESULT STDMETHODCALLTYPE Skip(LONG, ULONG count) override {
    const std::size_t left = instances_.size() - next_;
    next_ += std::min<std::size_t>(count, left);
    return count <= left ? WBEM_S_NO_ERROR : WBEM_S_FALSE;
  }

 private:
  ObjectPool& pool_;
  std::vector<CimObject> instances_;
  std::size_t next_ = 0;
};

}  // namespace

Namespace::Namespace(const Repository& repository, ObjectPool& pool, Defects& defects)
    : UnsupportedServices("the namespace"),
      repository_(repository),
      pool_(pool),
      defects_(defects) {}

void Namespace::AddInstance(CimObject instance) {
  instances_.push_back(std::move(instance));
}

void Namespace::BeginRequest(std::string request, IWbemContext* context) {
  request_ = std::move(request);
  context_ = context;
}

void Namespace::CheckContext(const std::string& call, IWbemContext* context) {
  if (context == context_) return;
  defects_.Add(request_ + ": " + call +
               (context == nullptr    ? " without the request's context"
                : context_ == nullptr ? " with a context, where there is none"
                                      : " with another context than the request's"));
}

HRESULT Namespace::GetObject(const BSTR path, LONG flags, IWbemContext* context,
                             IWbemClassObject** object, IWbemCallResult** result) {
  if (result != nullptr) *result = nullptr;
  if (object == nullptr || path == nullptr || flags != 0) return kInvalidParameter;
  *object = nullptr;
  const std::string name = platform::Utf8Text(platform::ViewOf(path));
  CheckContext("GetObject(" + name + ")", context);
  const ClassInfo* info = repository_.FindClass(name);
  if (info == nullptr) return WBEM_E_NOT_FOUND;
  *object = pool_.New<ClassObject>(pool_, CimObject(*info, CimObject::Kind::kClass)).release();
  return S_OK;
}

HRESULT Namespace::CreateInstanceEnum(const BSTR className, LONG, IWbemContext* context,
                                      IEnumWbemClassObject** instances) {
  if (instances == nullptr || className == nullptr) return kInvalidParameter;
  *instances = nullptr;
  const std::string name = platform::Utf8Text(platform::ViewOf(className));
  CheckContext("CreateInstanceEnum(" + name + ")", context);
  const ClassInfo* info = repository_.FindClass(name);
  if (info == nullptr) return WBEM_E_INVALID_CLASS;
  // An enumeration of the provider's own classes would call the provider again.
  if (std::ranges::find(repository_.served(), info) != repository_.served().end()) {
    return kNotSupported;
  }
  std::vector<CimObject> found;
  std::ranges::copy_if(instances_, std::back_inserter(found),
                       [&](const CimObject& each) { return &each.info() == info; });
  *instances = pool_.New<InstanceEnumerator>(pool_, std::move(found)).release();
  return S_OK;
}

}  // namespace host
