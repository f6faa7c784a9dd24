// Where the loader looks for the libraries that the module imports: the module's own folder and the
// system's, never the current directory or the search path. Honoured since Windows 10 1607; before
// that these folders still come first. Other linkers take it as an option (/DEPENDENTLOADFLAG).

#include "platform/platform.h"

namespace {

constexpr WORD kSearchedFolders = LOAD_LIBRARY_SEARCH_DLL_LOAD_DIR | LOAD_LIBRARY_SEARCH_SYSTEM32;

constexpr IMAGE_LOAD_CONFIG_DIRECTORY64 LoadConfig() {
  IMAGE_LOAD_CONFIG_DIRECTORY64 config = {};
  config.Size = sizeof(config);
  config.Reserved1 = kSearchedFolders;  // DependentLoadFlags, in these headers under its old name
  return config;
}

static_assert(offsetof(IMAGE_LOAD_CONFIG_DIRECTORY64, Reserved1) == 0x4E);
static_assert(sizeof(IMAGE_LOAD_CONFIG_DIRECTORY64) == 0x70);  // as CMakeLists.txt says

}  // namespace

// cmake/set_load_config.sh enters it into the linked file's header.
extern "C" __attribute__((used)) const IMAGE_LOAD_CONFIG_DIRECTORY64 _load_config_used =
    LoadConfig();
