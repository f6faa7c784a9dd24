#pragma once

#include "platform/platform.h"

namespace wifi {

/// The calling thread acts as the client while this lives. A refusal is not an error: the work then
/// goes on under whatever identity the thread has.
class ClientImpersonation {
 public:
  ClientImpersonation() { CoImpersonateClient(); }
  ClientImpersonation(const ClientImpersonation&) = delete;
  ClientImpersonation& operator=(const ClientImpersonation&) = delete;
  ~ClientImpersonation() { CoRevertToSelf(); }
};

}  // namespace wifi
