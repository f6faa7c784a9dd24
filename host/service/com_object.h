#pragma once
// COM objects that the host passes to a provider. A pool controls their lifetime, not their
// references, so that too many or too few releases are reported instead of crashing the host.

#include <atomic>
#include <memory>
#include <string>
#include <utility>
#include <vector>

#include "host/service/defects.h"
#include "platform/com_ptr.h"

namespace host {

// The code with which the service's objects refuse an operation, in the type that their methods
// return.
inline constexpr HRESULT kNotSupported = WBEM_E_NOT_SUPPORTED;
inline constexpr HRESULT kInvalidParameter = WBEM_E_INVALID_PARAMETER;

/// A reference count that tolerates misuse and records it.
class Referenced {
 public:
  explicit Referenced(std::string what) : what_(std::move(what)) {}
  Referenced(const Referenced&) = delete;
  Referenced& operator=(const Referenced&) = delete;
  virtual ~Referenced() = default;

  LONG references() const { return references_; }
  /// Whether a reference was added after the last release, or released more often than added.
  bool misused() const { return misused_; }
  /// What the provider did wrong with the object, one sentence each.
  const std::vector<std::string>& complaints() const { return complaints_; }
  /// The object's name in messages: "the sink", "an instance of CLASS".
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

/// IUnknown for a Referenced; starts with one reference, which belongs to its creator.
template <class Interface, const IID& kInterfaceId>
class ComObject : public Interface, public Referenced {
 public:
  using Referenced::Referenced;

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

/// Owns the objects of one request. Released objects are kept for a while, so that one release too
/// many is noticed; a request with very many objects frees the oldest ones.
class ObjectPool {
 public:
  /// Creates an object; the returned pointer owns its first reference.
  template <class Object, class... Arguments>
  platform::ComPtr<Object> New(Arguments&&... arguments) {
    auto owned = std::make_unique<Object>(std::forward<Arguments>(arguments)...);
    Object* object = owned.get();
    if (objects_.size() >= roomy_) Tidy();
    objects_.push_back(std::move(owned));
    return platform::ComPtr<Object>::Adopt(object);
  }

  /// Ends a request: frees objects without references and reports objects that the provider still
  /// holds or released too often. Objects that are still held stay usable until the pool is
  /// destroyed.
  void Sweep(const std::string& request, Defects& defects);

 private:
  static constexpr std::size_t kKept = 4096;

  /// Frees correctly released objects except the newest.
  void Tidy();

  std::vector<std::unique_ptr<Referenced>> objects_;
  std::vector<std::unique_ptr<Referenced>> leaked_;
  std::size_t roomy_ = 2 * kKept;  ///< tidy once the pool holds this many objects
};

}  // namespace host
