#pragma once
// A machine at a terminal: the most important facts.

#include <string>

#include "host/model/machine.h"

namespace host {

/// Rows of the output formats, one per adapter. Unknown values are null.
Json AdapterRows(const Machine& machine);
/// Rows of the output formats, one per network that an adapter hears, the strongest first.
Json NetworkRows(const Machine& machine);

/// The same as tables for users.
std::string AdapterTable(const Machine& machine, int width, bool color);
std::string NetworkTable(const Machine& machine, int width, bool color);
/// Each adapter with its network, signal and address; its problems; the networks around.
std::string StatusText(const Machine& machine, int width, bool color);

/// What is unknown about the machine and why, one sentence each.
std::vector<std::string> Unknowns(const Machine& machine);

}  // namespace host
