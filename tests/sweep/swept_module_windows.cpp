// The linked module, whose imports are redirected to the fakes: both libraries, the heap,
// impersonation.

#include <cstdlib>
#include <unordered_set>

#include "adapterapi/tolva_api.h"
#include "platform/control/import_slot_windows.h"
#include "tests/support/fault_plan.h"
#include "tests/sweep/swept_module.h"

using testing_support::FaultPlan;
using testing_support::Side;
using testing_support::Step;

// The fake profile library's members, by this compiler's names for them.
#define PROFILE_MEMBERS(MEMBER)                                                               \
  MEMBER(0, "_ZN11CProfileMgrC1Ev", "??0CProfileMgr@@QEAA@XZ")                                \
  MEMBER(1, "_ZN11CProfileMgrD1Ev", "??1CProfileMgr@@QEAA@XZ")                                \
  MEMBER(2, "_ZN11CProfileMgr15SetWiFiProviderEb", "?SetWiFiProvider@CProfileMgr@@QEAAX_N@Z") \
  MEMBER(3, "_ZN11CProfileMgr4OpenEm", "?Open@CProfileMgr@@QEAAJK@Z")                         \
  MEMBER(4, "_ZN11CProfileMgr5CloseEv", "?Close@CProfileMgr@@QEAAJXZ")                        \
  MEMBER(5, "_ZN11CProfileMgr24GetFirstPreferredProfileER17CPreferredProfilem",               \
         "?GetFirstPreferredProfile@CProfileMgr@@QEAAJAEAVCPreferredProfile@@K@Z")            \
  MEMBER(6, "_ZN11CProfileMgr23GetNextPreferredProfileER17CPreferredProfilem",                \
         "?GetNextPreferredProfile@CProfileMgr@@QEAAJAEAVCPreferredProfile@@K@Z")             \
  MEMBER(7, "_ZN11CProfileMgr17GetProfileToApplyEPKcR18ORVEL_WLAN_PROFILEm",                  \
         "?GetProfileToApply@CProfileMgr@@QEAAJPEBDAEAUORVEL_WLAN_PROFILE@@K@Z")              \
  MEMBER(8, "_ZN17CPreferredProfileC1Ev", "??0CPreferredProfile@@QEAA@XZ")                    \
  MEMBER(9, "_ZN17CPreferredProfileD1Ev", "??1CPreferredProfile@@QEAA@XZ")                    \
  MEMBER(10, "_ZNK17CPreferredProfile4NameEv", "?Name@CPreferredProfile@@QEBAPEBDXZ")         \
  MEMBER(11, "_ZNK17CPreferredProfile4SsidEv", "?Ssid@CPreferredProfile@@QEBAPEBDXZ")         \
  MEMBER(12, "_ZNK17CPreferredProfile11MandatoryApEv",                                        \
         "?MandatoryAp@CPreferredProfile@@QEBAPEBDXZ")                                        \
  MEMBER(13, "_ZNK17CPreferredProfile6OpModeEv",                                              \
         "?OpMode@CPreferredProfile@@QEBA?AW4ORVEL_OPMODE@@XZ")                               \
  MEMBER(14, "_ZNK17CPreferredProfile7StealthEv", "?Stealth@CPreferredProfile@@QEBAJXZ")      \
  MEMBER(15, "_ZNK17CPreferredProfile12WepAlgorithmEv",                                       \
         "?WepAlgorithm@CPreferredProfile@@QEBA?AW4ORVEL_ALGORITHM@@XZ")                      \
  MEMBER(16, "_ZNK17CPreferredProfile8AuthModeEv",                                            \
         "?AuthMode@CPreferredProfile@@QEBA?AW4ORVEL_AUTHMODE@@XZ")

#define DECLARE_MEMBER(number, name, decorated) \
  extern "C" void ProfileMember##number() __asm__(name);
PROFILE_MEMBERS(DECLARE_MEMBER)
#undef DECLARE_MEMBER

namespace {

using namespace adapterapi;

#define QUARN_OPERATION(ordinal, name, parameters, arguments) \
  ApiStatus name parameters {                                 \
    return sweep::currentLibrary->name arguments;             \
  }
#include "adapterapi/operations.inc"
#undef QUARN_OPERATION

std::unordered_set<void*>& Blocks() {
  static std::unordered_set<void*> blocks;
  return blocks;
}

void* Noted(void* block) {
  if (FaultPlan::inside && block != nullptr) {
    const Side outside(false);
    Blocks().insert(block);
  }
  return block;
}
void* Allocate(std::size_t size) {
  return FaultPlan::Hit(Step::kHeap) ? nullptr : Noted(std::malloc(size));
}
void* AllocateCleared(std::size_t count, std::size_t size) {
  return Noted(std::calloc(count, size));
}
void* Resize(void* block, std::size_t size) {
  Blocks().erase(block);
  return Noted(std::realloc(block, size));
}
void Free(void* block) {
  Blocks().erase(block);
  std::free(block);
}

int impersonations = 0;
HRESULT WINAPI Impersonate() {
  ++impersonations;
  return S_OK;
}
HRESULT WINAPI Revert() {
  --impersonations;
  return S_OK;
}

// Raises in turn what a library, another compiler's runtime and a stray pointer raise.
void Raise() {
  static int turn = 0;
  switch (++turn % 3) {
    case 0:
      RaiseException(0xE06D7363, EXCEPTION_NONCONTINUABLE, 0, nullptr);
      break;
    case 1:
      RaiseException(0xC0000094, 0, 0, nullptr);
      break;
    default:
      *static_cast<volatile int*>(nullptr) = 1;
  }
}

HMODULE LoadWithFakes() {
  CoInitializeEx(nullptr, COINIT_APARTMENTTHREADED);
  const HMODULE module = LoadLibraryA("WiFiAdapterProvider.dll");
  bool replaced = module != nullptr;
#define QUARN_OPERATION(ordinal, name, parameters, arguments) \
  replaced = replaced &&                                      \
             platform::ReplaceImport(module, "QuarnApi.dll", MAKEINTRESOURCEA(ordinal), &name);
#include "adapterapi/operations.inc"
#undef QUARN_OPERATION
#define REPLACE_MEMBER(number, name, decorated) \
  replaced = replaced &&                        \
             platform::ReplaceImport(module, "TolvaApi.dll", decorated, &ProfileMember##number);
  PROFILE_MEMBERS(REPLACE_MEMBER)
#undef REPLACE_MEMBER
  replaced = replaced && platform::ReplaceImport(module, "msvcrt.dll", "malloc", &Allocate) &&
             platform::ReplaceImport(module, "msvcrt.dll", "free", &Free) &&
             platform::ReplaceImport(module, "ole32.dll", "CoImpersonateClient", &Impersonate) &&
             platform::ReplaceImport(module, "ole32.dll", "CoRevertToSelf", &Revert);
  if (!replaced) std::abort();
  platform::ReplaceImport(module, "msvcrt.dll", "calloc", &AllocateCleared);
  platform::ReplaceImport(module, "msvcrt.dll", "realloc", &Resize);
  FaultPlan::raiseStructured = Raise;
  return module;
}

template <class Function>
Function* Exported(HMODULE module, const char* name) {
  return reinterpret_cast<Function*>(reinterpret_cast<void*>(GetProcAddress(module, name)));
}

}  // namespace

namespace sweep {

const bool kStructuredOnly = true;

const SweptModule& Module() {
  static const SweptModule module = [] {
    const HMODULE loaded = LoadWithFakes();
    return SweptModule{
        loaded,
        Exported<HRESULT STDAPICALLTYPE(REFCLSID, REFIID, void**)>(loaded, "DllGetClassObject"),
        Exported<HRESULT STDAPICALLTYPE()>(loaded, "DllCanUnloadNow"),
        Exported<HRESULT STDAPICALLTYPE()>(loaded, "DllRegisterServer"),
        Exported<HRESULT STDAPICALLTYPE()>(loaded, "DllUnregisterServer")};
  }();
  return module;
}

long LiveBlocks() {
  return static_cast<long>(Blocks().size());
}
int LiveTexts() {
  return 0;
}
int ImpersonationDepth() {
  return impersonations;
}

}  // namespace sweep
