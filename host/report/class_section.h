#pragma once

#include "host/model/dump.h"
#include "host/model/source.h"
#include "host/report/html.h"
#include "host/service/repository.h"

namespace host {

/// Every class with all its instances, collapsed.
void WriteClassSection(Html& html, const Repository& repository, const Dump& dump,
                       const Source& source);

}  // namespace host
