#pragma once

#include "scenario/scenario.h"

namespace simulator {

/// Sets the values that an adapter shows after it has joined the profile's network: the network's
/// data from the list of available networks, else a good signal at the best rate.
void Connect(Adapter& adapter, const ProfileRecord& profile);

/// Sets the values that an adapter shows without an association; its band is kept.
void Disconnect(Adapter& adapter);

/// The network that the adapter is associated with, as an entry of the exclude list.
adapterapi::ExcludeEntryRecord CurrentNetwork(const Adapter& adapter);

}  // namespace simulator
