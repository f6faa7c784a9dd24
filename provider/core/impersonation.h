#pragma once

#include "platform/platform.h"

namespace wifi {

/// Impersonates the client on the calling thread while the object lives. A failure is not an error:
/// the thread then keeps its identity.
class ClientImpersonation {
 public:
  ClientImpersonation() { CoImpersonateClient(); }
  ClientImpersonation(const ClientImpersonation&) = delete;
  ClientImpersonation& operator=(const ClientImpersonation&) = delete;
  ~ClientImpersonation() { CoRevertToSelf(); }
};

}  // namespace wifi
