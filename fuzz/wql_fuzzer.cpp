// Arbitrary bytes are a query or give a QueryError; a query that was read is evaluated for an
// instance.

#include "fuzz/fuzz_target.h"
#include "host/query/associators.h"
#include "host/query/wql.h"
#include "tests/host/toy.h"

void Fuzz_wql(FuzzInput bytes) {
  try {
    if (host::ParseAssociators(TextOf(bytes), host::ToyRepository())) return;
    const host::WqlQuery query = host::ParseWql(TextOf(bytes), host::ToyRepository());
    if (query.className != "Toy") return;
    query.Selects(host::NewToy("alpha", 5));
    query.Selects(host::NewInstance("Toy"));
  } catch (const host::QueryError&) {
  }
}
