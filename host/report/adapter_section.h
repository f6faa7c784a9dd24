#pragma once

#include <vector>

#include "host/report/html.h"
#include "host/report/networks.h"

namespace host {

/// What each adapter is and does, in a few lines.
void WriteAdapterSection(Html& html, const Json& dump, const std::vector<Network>& networks);

}  // namespace host
