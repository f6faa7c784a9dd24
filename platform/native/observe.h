#pragma once
// What tests and the native host may see and set of the native platform layer. Nothing here exists
// on Windows; code that must build there reaches it through the host's own platform unit.

#include <string>

#include "platform/native/system.h"

namespace native {

/// Calls of CoImpersonateClient and CoRevertToSelf made by this thread since it started.
struct ImpersonationCounts {
  int impersonated = 0;
  int reverted = 0;
};
ImpersonationCounts ImpersonationCountsOfThread();

/// Whether OpenProcessToken fails from now on, as it does for a process that may not see itself.
void RefuseProcessTokens(bool refuse);

/// What GetVersionExA answers from now on, in every module of the process. Starts as NT 6.1.
void SetOsVersion(DWORD platformId, DWORD major, DWORD minor);

/// The n-th text or value allocation from now on (1 is the next) fails, once; 0 switches it off.
void FailAllocation(int nth);
/// Asked at each of them whether it must fail; none switches it off. Must not allocate.
void SetAllocationFault(bool (*mustFail)());
/// Blocks of texts (BSTR) and arrays alive in the process; an array has two, itself and its data.
int LiveAllocations();

/// Keeps the registry in a file from now on: reads it if it exists, writes it at every change.
/// Returns false if the file cannot be read, holds no registry, or cannot be written.
bool KeepRegistryIn(const std::string& path);
/// Empties the registry, invalidates what is open of it and leaves the file, if any, as it is.
void ClearRegistry();

}  // namespace native
