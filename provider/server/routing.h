#pragma once
// Maps classes to the routines that serve them. The order of the rows is part of the interface: a
// query is answered by the first class whose name is anywhere in its text.

#include "provider/core/instance.h"

namespace wifi {

struct ClassRoute {
  const OLECHAR* className;
  HRESULT (*enumerate)(ProviderState&, const Delivery&);
  HRESULT (*get)(ProviderState&, const Delivery&, const ParsedPath&);
};

/// The route of the class with this name, ignoring letter case; null if there is none.
const ClassRoute* RouteByName(const OLECHAR* className);

/// The first route whose class name is in the text of the query, case-sensitively; null if there is
/// none.
const ClassRoute* RouteByQuery(const OLECHAR* query);

/// The routine for instances that a client puts, by class.
struct UpdateRoute {
  const OLECHAR* className;
  HRESULT (*update)(ProviderState&, IWbemClassObject*, AdapterEntry&);
};
const UpdateRoute* UpdateRouteByName(const OLECHAR* className);

/// Status for a delete request. No class supports deletion.
HRESULT DeleteAnswer(const OLECHAR* className);

}  // namespace wifi
