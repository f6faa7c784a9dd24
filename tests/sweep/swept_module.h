#pragma once
// The module under the sweep: everything that it calls is the tests', and every piece of memory
// that it asks for is counted and can be refused.

#include "adapterapi/adapter_api.h"
#include "platform/platform.h"

namespace sweep {

struct SweptModule {
  HMODULE handle;  ///< null where the module's code is linked into the test
  HRESULT(STDAPICALLTYPE* getClassObject)(REFCLSID, REFIID, void**);
  HRESULT(STDAPICALLTYPE* canUnloadNow)();
  HRESULT(STDAPICALLTYPE* registerServer)();
  HRESULT(STDAPICALLTYPE* unregisterServer)();
};

/// Whether the sweep tries structured exceptions alone, which only the linked module meets, or
/// everything else.
extern const bool kStructuredOnly;

/// The module; the adapter control library that it calls is `*currentLibrary`.
const SweptModule& Module();
extern adapterapi::AdapterApi* currentLibrary;

/// Blocks of memory that the module's own code holds.
long LiveBlocks();
/// Texts and arrays alive in the process; 0 where they cannot be counted.
int LiveTexts();
/// Impersonations of this thread that were not reverted.
int ImpersonationDepth();

}  // namespace sweep
