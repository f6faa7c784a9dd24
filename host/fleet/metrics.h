#pragma once
// A machine as metrics in the text format of Prometheus.

#include <string>
#include <utility>
#include <vector>

#include "host/model/machine.h"
#include "host/service/repository.h"

namespace host {

/// How long the enumeration of each class took, in seconds.
using RequestTimes = std::vector<std::pair<std::string, double>>;

/// Numbers are in base units, counters modulo 2^32. What is not known is left out. The number of
/// samples depends on the machine's adapters only, not on the networks that it hears: they are
/// counted by band, protection and channel.
std::string MetricsText(const Machine& machine, const Dump& dump, const Repository& repository,
                        const RequestTimes& times);

}  // namespace host
