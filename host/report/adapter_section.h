#pragma once

#include "host/model/machine.h"
#include "host/report/html.h"

namespace host {

/// What each adapter is and does, in a few lines.
void WriteAdapterSection(Html& html, const Machine& machine);

}  // namespace host
