#pragma once
// A dump as one page to send and to read, which needs no other file, no network and no library.

#include <ostream>

#include "host/service/repository.h"
#include "host/service/value.h"

namespace host {

/// Writes the page. It contains the dump itself, as `dump --format json` prints it, in a script
/// element with the id wifi-dump, with `<` written as \u003c.
void WriteReport(std::ostream& output, const Repository& repository, const Json& dump);

}  // namespace host
