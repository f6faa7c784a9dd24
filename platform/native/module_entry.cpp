// Linked into each module: what the system's loader does with the entry point of a DLL.

#include "platform/native/system.h"

namespace {

class ModuleEntry {
 public:
  ModuleEntry() { DllMain(Instance(), DLL_PROCESS_ATTACH, nullptr); }
  ~ModuleEntry() { DllMain(Instance(), DLL_PROCESS_DETACH, nullptr); }

 private:
  // An address inside the module, from which GetModuleFileNameW finds its file.
  HINSTANCE Instance() { return reinterpret_cast<HINSTANCE>(this); }
};

// Built when the module is loaded, in turn with the module's other static objects: an entry point
// relies on none that needs a constructor to run.
ModuleEntry moduleEntry;

}  // namespace
