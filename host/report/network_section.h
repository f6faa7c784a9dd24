#pragma once

#include <string>
#include <vector>

#include "host/report/html.h"
#include "host/report/networks.h"

namespace host {

/// The section of a spectrum: a chart for each adapter that hears something there, and a table of
/// all networks. Nothing without a network. `networks` are all of the dump.
void WriteNetworkSection(Html& html, const Json& dump, const std::vector<Network>& networks,
                         Spectrum spectrum);

}  // namespace host
