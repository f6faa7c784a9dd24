#pragma once
// What tests and the native host may read and change in the native platform layer. Nothing here
// exists on Windows. Code that must build there uses platform/control/control.h instead.

#include <string>

#include "platform/native/system.h"

namespace native {

/// Calls of CoImpersonateClient and CoRevertToSelf made by this thread since it started.
struct ImpersonationCounts {
  int impersonated = 0;
  int reverted = 0;
};
ImpersonationCounts ImpersonationCountsOfThread();

/// From now on OpenProcessToken fails if `refuse`, as it does without the right to query the
/// process.
void RefuseProcessTokens(bool refuse);

/// From now on GetVersionExA answers this in every module of the process. The default is NT 6.1.
void SetOsVersion(DWORD platformId, DWORD major, DWORD minor);

/// The n-th allocation of a text or array from now on (1 is the next) fails, once. 0: none fails.
void FailAllocation(int nth);
/// Each allocation fails for which `mustFail` returns true. nullptr: none fails. It must not
/// allocate.
void SetAllocationFault(bool (*mustFail)());
/// The number of live blocks of texts (BSTR) and arrays in the process. An array has two: its
/// descriptor and its data.
int LiveAllocations();

/// From now on the registry is kept in a file. It is read now if it exists, and written now and at
/// every change. Returns false if it cannot be read or written, or does not hold a registry.
bool KeepRegistryIn(const std::string& path);
/// Empties the registry. Open keys count as deleted. A file of KeepRegistryIn is left as it is, and
/// no longer written.
void ClearRegistry();

}  // namespace native
