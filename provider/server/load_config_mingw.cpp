// Restricts the search for the libraries that the module imports to the module's own folder and the
// system folder; the current directory and the search path are never used. Windows 10 1607 and
// later obey it; earlier versions still search these folders first. Other linkers have an option
// for it (/DEPENDENTLOADFLAG).

#include <cstddef>

#include "platform/platform.h"

namespace {

constexpr WORD kSearchedFolders = LOAD_LIBRARY_SEARCH_DLL_LOAD_DIR | LOAD_LIBRARY_SEARCH_SYSTEM32;

constexpr IMAGE_LOAD_CONFIG_DIRECTORY64 LoadConfig() {
  IMAGE_LOAD_CONFIG_DIRECTORY64 config = {};
  config.Size = sizeof(config);
  config.Reserved1 = kSearchedFolders;  // these headers' name for DependentLoadFlags
  return config;
}

static_assert(offsetof(IMAGE_LOAD_CONFIG_DIRECTORY64, Reserved1) == 0x4E);
static_assert(sizeof(IMAGE_LOAD_CONFIG_DIRECTORY64) == 0x70);  // as CMakeLists.txt says

}  // namespace

// cmake/set_load_config.sh enters it into the linked file's header.
extern "C" __attribute__((used)) const IMAGE_LOAD_CONFIG_DIRECTORY64 _load_config_used =
    LoadConfig();
