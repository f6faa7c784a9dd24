#pragma once
// COM objects that the host hands to a provider. They live in a pool, not by their references, so
// that a provider that releases too much or too little is told of it instead of crashing the host.

#include <atomic>
#include <memory>
#include <string>
#include <utility>
#include <vector>

#include "host/service/defects.h"
#include "platform/com_ptr.h"

namespace host {

// What the service's objects refuse with, as what their methods return.
inline constexpr HRESULT kNotSupported = WBEM_E_NOT_SUPPORTED;
inline constexpr HRESULT kInvalidParameter = WBEM_E_INVALID_PARAMETER;

/// A reference count that tolerates misuse and remembers it.
class Counted {
 public:
  explicit Counted(std::string what) : what_(std::move(what)) {}
  Counted(const Counted&) = delete;
  Counted& operator=(const Counted&) = delete;
  virtual ~Counted() = default;

  LONG references() const { return references_; }
  /// Whether it was taken again after its last release, or released more often than taken.
  bool misused() const { return misused_; }
  /// What the provider did wrong with it, a sentence each.
  const std::vector<std::string>& complaints() const { return complaints_; }
  /// What it is, for messages: "the sink", "an instance of CLASS".
  const std::string& what() const { return what_; }

 protected:
  void Complain(std::string sentence) { complaints_.push_back(std::move(sentence)); }
  ULONG Take() {
    const LONG now = ++references_;
    if (now <= 1) misused_ = true;
    return static_cast<ULONG>(now);
  }
  ULONG Drop() {
    const LONG now = --references_;
    if (now < 0) misused_ = true;
    return static_cast<ULONG>(now);
  }

 private:
  std::string what_;
  std::vector<std::string> complaints_;
  std::atomic<LONG> references_{1};
  std::atomic<bool> misused_{false};
};

/// IUnknown over a Counted; starts with one reference, which belongs to its maker.
template <class Interface, const IID& kInterfaceId>
class ComObject : public Interface, public Counted {
 public:
  using Counted::Counted;

  HRESULT STDMETHODCALLTYPE QueryInterface(REFIID iid, void** object) override {
    if (object == nullptr) return E_POINTER;
    *object = nullptr;
    if (!IsEqualIID(iid, IID_IUnknown) && !IsEqualIID(iid, kInterfaceId)) return E_NOINTERFACE;
    *object = static_cast<Interface*>(this);
    Take();
    return S_OK;
  }
  ULONG STDMETHODCALLTYPE AddRef() override { return Take(); }
  ULONG STDMETHODCALLTYPE Release() override { return Drop(); }
};

/// Owns the objects of one request. What the provider has released is kept for a while, so that a
/// release too many is noticed; a request of very many objects lets the oldest of them go.
class ObjectPool {
 public:
  /// Makes an object; the pointer carries its first reference.
  template <class Object, class... Arguments>
  platform::ComPtr<Object> New(Arguments&&... arguments) {
    auto owned = std::make_unique<Object>(std::forward<Arguments>(arguments)...);
    Object* object = owned.get();
    if (objects_.size() >= roomy_) Tidy();
    objects_.push_back(std::move(owned));
    return platform::ComPtr<Object>::Adopt(object);
  }

  /// Ends a request: frees what nobody holds and reports what the provider still holds or released
  /// too often. What is still held stays usable until the pool ends.
  void Sweep(const std::string& request, Defects& defects);

 private:
  static constexpr std::size_t kKept = 4096;

  /// Frees what was released as it should be, but for the newest.
  void Tidy();

  std::vector<std::unique_ptr<Counted>> objects_;
  std::vector<std::unique_ptr<Counted>> leaked_;
  std::size_t roomy_ = 2 * kKept;  ///< so many objects, and it is tidied
};

}  // namespace host
