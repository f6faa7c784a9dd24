#pragma once

#include "host/model/machine.h"
#include "host/report/html.h"

namespace host {

/// The state of each adapter in a few lines.
void WriteAdapterSection(Html& html, const Machine& machine);

}  // namespace host
