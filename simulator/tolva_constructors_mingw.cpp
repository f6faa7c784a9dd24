#include <new>

#include "adapterapi/tolva_api.h"

// A constructor gives back its object, as callers of the platform's own compiler expect.
extern "C" {

void* ConstructProfileMgr(void* storage) {
  return new (storage) CProfileMgr;
}

void* ConstructPreferredProfile(void* storage) {
  return new (storage) CPreferredProfile;
}
}
