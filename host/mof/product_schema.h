#pragma once
// The product's own MOF files, compiled in: embedded::wifi_adapter_provider_mof() and
// embedded::uninstall_mof().

#include "platform/embedded_text.h"

EMBEDDED_TEXT(wifi_adapter_provider_mof)
EMBEDDED_TEXT(uninstall_mof)
