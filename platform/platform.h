#pragma once
// The Windows interfaces that the product uses: from the system headers on Windows, from the native
// layer elsewhere. All other folders include this header, never the system headers themselves.

#ifdef _WIN32
#ifndef NOMINMAX
#define NOMINMAX
#endif
#ifndef NOGDI
#define NOGDI  // its macros would rename IWbemServices::GetObject
#endif
#ifndef WIN32_LEAN_AND_MEAN
#define WIN32_LEAN_AND_MEAN
#endif
// clang-format off
#include <windows.h>
#include <ole2.h>
#include <oleauto.h>
#include <wbemcli.h>
#include <wbemprov.h>
#include "platform/windows/signed_codes.h"
// clang-format on
#else
#include "platform/native/automation.h"
#include "platform/native/com.h"
#include "platform/native/system.h"
#include "platform/native/wbem.h"
#endif
