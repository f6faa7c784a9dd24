// Linked into each module. Calls DllMain as the loader of Windows does.

#include "platform/native/system.h"

namespace {

class ModuleEntry {
 public:
  ModuleEntry() { DllMain(Instance(), DLL_PROCESS_ATTACH, nullptr); }
  ~ModuleEntry() { DllMain(Instance(), DLL_PROCESS_DETACH, nullptr); }

 private:
  // An address inside the module, by which GetModuleFileNameW finds the file.
  HINSTANCE Instance() { return reinterpret_cast<HINSTANCE>(this); }
};

// Constructed when the module is loaded, in no fixed order with the other static objects of the
// module. So DllMain must not use a static object that needs a constructor.
ModuleEntry moduleEntry;

}  // namespace
