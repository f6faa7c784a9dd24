#pragma once
// Which routine serves which class. The order of the rows is part of the interface: queries are
// answered by the first class whose name stands anywhere in their text.

#include "provider/core/instance.h"

namespace wifi {

struct ClassRoute {
  const OLECHAR* className;
  HRESULT (*enumerate)(ProviderState&, const Delivery&);
  HRESULT (*get)(ProviderState&, const Delivery&, const ParsedPath&);
};

/// The route of the class with this whole name, ignoring letter case; none for any other name.
const ClassRoute* RouteByName(const OLECHAR* className);

/// The first route whose class name stands in the query's text, letter case counting.
const ClassRoute* RouteByQuery(const OLECHAR* query);

/// What becomes of an instance that a client puts, by its class.
struct UpdateRoute {
  const OLECHAR* className;
  HRESULT (*update)(ProviderState&, IWbemClassObject*, AdapterEntry&);
};
const UpdateRoute* UpdateRouteByName(const OLECHAR* className);

/// What a client hears that wants an instance of the class deleted: nothing ever is.
HRESULT DeleteAnswer(const OLECHAR* className);

}  // namespace wifi
