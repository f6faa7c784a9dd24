#pragma once

#include <stdexcept>
#include <string>

#include "host/service/defects.h"
#include "platform/com_ptr.h"

namespace host {

class ModuleError : public std::runtime_error {
 public:
  using std::runtime_error::runtime_error;
};

/// The provider's module, reached only through what it exports. Everything that came from it must
/// be released before it ends.
class ProviderModule {
 public:
  /// Loads a file; the path is UTF-8. Throws ModuleError.
  explicit ProviderModule(const std::string& path);
  ProviderModule(const ProviderModule&) = delete;
  ProviderModule& operator=(const ProviderModule&) = delete;
  ~ProviderModule();

  HMODULE handle() const { return module_; }
  /// The class factory of the provider. Throws ModuleError.
  platform::ComPtr<IClassFactory> Factory() const;
  /// Reports a module that says it cannot be unloaded although nothing of it is held any more.
  void CheckUnloadable(Defects& defects) const;

 private:
  std::string path_;
  HMODULE module_;
};

}  // namespace host
