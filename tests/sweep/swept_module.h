#pragma once
// The module in the sweep: everything that it calls is a fake, and each of its allocations is
// counted and can be refused.

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

/// Whether the sweep tries only structured exceptions, which apply only to the linked module, or
/// everything else.
extern const bool kStructuredOnly;

/// The module; the adapter control library that it calls is `*currentLibrary`.
const SweptModule& Module();
extern adapterapi::AdapterApi* currentLibrary;

/// Memory blocks that the module's own code holds.
long LiveBlocks();
/// Texts and arrays alive in the process; 0 where they cannot be counted.
int LiveTexts();
/// Impersonations of this thread that were not reverted.
int ImpersonationDepth();

}  // namespace sweep
