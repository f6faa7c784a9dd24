#pragma once
// The product's own schema, compiled in: embedded::wifi_adapter_provider_mof().

#include "platform/embedded_text.h"

EMBEDDED_TEXT(wifi_adapter_provider_mof)
