#include "bench/service.h"

namespace bench {

ULONG Instance::Release() {
  const ULONG left = --references_;
  if (left == 0) definition_.free_.push_back(this);
  return left;
}

HRESULT Instance::Put(LPCWSTR name, LONG, VARIANT* value, CIMTYPE) {
  if (next_ == slots_.size()) slots_.emplace_back();
  PutValue& slot = slots_[next_++];
  if (slot.name != name) slot.name = name;
  return VariantCopy(slot.value.in_place(), value);  // which clears the old value
}

HRESULT Definition::SpawnInstance(LONG, IWbemClassObject** instance) {
  if (free_.empty()) {
    all_.push_back(std::make_unique<Instance>(*this));
    free_.push_back(all_.back().get());
  }
  Instance* spawned = free_.back();
  free_.pop_back();
  spawned->references_ = 1;
  spawned->next_ = 0;
  *instance = spawned;
  return S_OK;
}

HRESULT CountingSink::Indicate(LONG, IWbemClassObject** instance) {
  if (indicated++ == 0 && first.empty()) {
    for (const PutValue& put : static_cast<Instance*>(*instance)->puts()) {
      first.push_back({put.name, platform::Variant::CopyOf(put.value.get())});
    }
  }
  return S_OK;
}

HRESULT Namespace::CreateInstanceEnum(const BSTR className, LONG, IWbemContext*,
                                      IEnumWbemClassObject** instances) {
  if (platform::ViewOf(className) != OLESTR("Win32_NetworkAdapter")) return WBEM_E_INVALID_CLASS;
  *instances = new testing_support::FakeEnumeration(adapters);
  return S_OK;
}

}  // namespace bench
