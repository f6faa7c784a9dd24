#pragma once

#include "host/model/machine.h"
#include "host/report/html.h"

namespace host {

/// The section of a spectrum: a chart for each adapter that hears something there, and a table of
/// all networks. Empty without networks.
void WriteNetworkSection(Html& html, const Machine& machine, Spectrum spectrum);

}  // namespace host
