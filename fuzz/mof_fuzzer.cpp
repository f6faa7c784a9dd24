// Arbitrary bytes are a MOF text or give a MofError; a schema that was read can be checked and
// described.

#include "fuzz/fuzz_target.h"
#include "host/mof/check.h"
#include "host/mof/reference.h"

void Fuzz_mof(FuzzInput bytes) {
  try {
    const host::Schema schema = host::ParseMof(TextOf(bytes), "fuzz");
    host::CheckSchema(schema);
    host::ClassReference(schema);
    for (const host::ClassDeclaration& declaration : schema.classes) {
      host::DescribeClass(declaration);
    }
  } catch (const host::MofError&) {
  }
}
