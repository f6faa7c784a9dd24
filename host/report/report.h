#pragma once
// A dump as one page to send and to look at: no file, no network and no library beside it.

#include <string>

#include "host/service/repository.h"
#include "host/service/value.h"

namespace host {

/// The page. It holds the dump itself, as `dump --format json` prints it, in a script element with
/// the id wifi-dump; there `<` stands as \u003c.
std::string ReportPage(const Repository& repository, const Json& dump);

}  // namespace host
