// The ordinals are the contract with the closed library. A second list, separate from the one that
// the binding is made from, shows when one of them has a typing error.

#include "adapterapi/operations.h"

#include <gtest/gtest.h>

#include <sstream>

#include "platform/embedded_text.h"

EMBEDDED_TEXT(ordinals)

namespace adapterapi {
namespace {

TEST(Operations, HaveTheLibrarysOrdinals) {
  std::ostringstream listed;
#define QUARN_OPERATION(ordinal, name, parameters, arguments) listed << #ordinal " " #name "\n";
#include "adapterapi/operations.inc"
#undef QUARN_OPERATION
  EXPECT_EQ(listed.str(), embedded::ordinals());
}

}  // namespace
}  // namespace adapterapi
