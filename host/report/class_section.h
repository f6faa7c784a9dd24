#pragma once

#include "host/report/html.h"
#include "host/service/repository.h"
#include "host/service/value.h"

namespace host {

/// Every class with all its instances, folded.
void WriteClassSection(Html& html, const Repository& repository, const Json& dump);

}  // namespace host
