#include <new>

#include "adapterapi/tolva_api.h"

// A constructor returns its object, as callers built with the platform's own compiler expect.
extern "C" {

void* ConstructProfileMgr(void* storage) {
  return new (storage) CProfileMgr;
}

void* ConstructPreferredProfile(void* storage) {
  return new (storage) CPreferredProfile;
}
}
