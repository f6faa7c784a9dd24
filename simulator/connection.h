#pragma once

#include "scenario/scenario.h"

namespace simulator {

/// What an adapter shows once it has joined the profile's network: the network's own data as the
/// list of available networks has it, else a good signal at the best rate.
void Connect(Adapter& adapter, const ProfileRecord& profile);

/// What an adapter shows without an association; its band stays.
void Disconnect(Adapter& adapter);

/// The network that the adapter is associated with, as an entry of the exclude list.
adapterapi::ExcludeEntryRecord CurrentNetwork(const Adapter& adapter);

}  // namespace simulator
