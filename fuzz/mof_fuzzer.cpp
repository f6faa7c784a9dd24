// Any bytes are a MOF text or give a MofError; what is read can be checked and described.

#include <cstddef>
#include <cstdint>

#include "host/mof/check.h"
#include "host/mof/reference.h"

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
  try {
    const std::string_view text(reinterpret_cast<const char*>(data), size);
    const host::Schema schema = host::ParseMof(text, "fuzz");
    host::CheckSchema(schema);
    host::ClassReference(schema);
    for (const host::ClassDeclaration& declaration : schema.classes) {
      host::DescribeClass(declaration);
    }
  } catch (const host::MofError&) {
  }
  return 0;
}
