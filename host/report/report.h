#pragma once
// A dump as one page to send and to look at: no file, no network and no library beside it.

#include <ostream>

#include "host/service/repository.h"
#include "host/service/value.h"

namespace host {

/// Writes the page. It holds the dump itself, as `dump --format json` prints it, in a script
/// element with the id wifi-dump; there `<` is written as \u003c.
void WriteReport(std::ostream& output, const Repository& repository, const Json& dump);

}  // namespace host
