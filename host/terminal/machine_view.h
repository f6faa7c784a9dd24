#pragma once
// A machine at a terminal: what a person wants to know first.

#include <string>

#include "host/model/machine.h"

namespace host {

/// Rows of the output formats, an adapter each. What is not known is null.
Json AdapterRows(const Machine& machine);
/// Rows of the output formats, a network that an adapter hears each, the strongest first.
Json NetworkRows(const Machine& machine);

/// The same as tables for a person.
std::string AdapterTable(const Machine& machine, int width, bool color);
std::string NetworkTable(const Machine& machine, int width, bool color);
/// Each adapter with its network, signal and address; what is wrong; the networks around.
std::string StatusText(const Machine& machine, int width, bool color);

/// What is not known of the machine and why, a sentence each.
std::vector<std::string> Unknowns(const Machine& machine);

}  // namespace host
