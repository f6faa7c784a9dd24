#pragma once

#include <optional>
#include <stdexcept>
#include <string>

#include "host/service/defects.h"
#include "platform/com_ptr.h"

namespace host {

class ModuleError : public std::runtime_error {
 public:
  using std::runtime_error::runtime_error;
};

/// Loads the closed libraries from a folder, so that the module's imports find them; the path is
/// UTF-8. Throws ModuleError.
void LoadClosedLibraries(const std::string& folder);

/// The provider's module, used only through its exports. Everything obtained from it must be
/// released before the module is destroyed.
class ProviderModule {
 public:
  /// Loads a file; the path is UTF-8. Throws ModuleError.
  explicit ProviderModule(const std::string& path);
  /// The file that the registry names for the class "{…}"; nullopt if the class is not registered.
  static std::optional<std::string> RegisteredPath(const std::string& classId);
  /// The module of that file; on systems that create objects of
  /// registered classes the system loads it. Throws ModuleError.
  static ProviderModule Registered(const std::string& classId);
  ProviderModule(const ProviderModule&) = delete;
  ProviderModule& operator=(const ProviderModule&) = delete;
  ~ProviderModule();

  /// The module's handle; null before the first Factory() of a registered module.
  HMODULE handle() const;
  /// The factory of the class "{…}". Throws ModuleError.
  platform::ComPtr<IClassFactory> Factory(const std::string& classId) const;
  /// Reports a module that cannot be unloaded although nothing from it is held.
  void CheckUnloadable(Defects& defects) const;

  /// Calls the module to write its registration, or to remove it.
  HRESULT Register() const;
  HRESULT Unregister() const;

 private:
  ProviderModule(const std::string& path, bool loadedByCom);
  HRESULT CallExport(const char* name) const;

  std::string path_;
  bool loadedByCom_;
  HMODULE module_;  ///< null if the system loads it
};

}  // namespace host
