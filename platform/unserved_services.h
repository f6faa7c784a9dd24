#pragma once

#include "platform/platform.h"

namespace platform {

/// IWbemServices on top of `Base`, with every operation refused: it returns `kAnswer` and touches
/// no argument. With `kClearsResults` it also sets the out-parameter to null. A derived class
/// overrides the operations that it serves.
template <class Base, HRESULT kAnswer, bool kClearsResults = false>
class UnservedServices : public Base {
 public:
  using Base::Base;

#define UNSERVED(operation, parameters, results)            \
  HRESULT STDMETHODCALLTYPE operation parameters override { \
    return Refuse results;                                  \
  }
  UNSERVED(OpenNamespace,
           (const BSTR, LONG, IWbemContext*, IWbemServices** opened, IWbemCallResult**), (opened))
  UNSERVED(CancelAsyncCall, (IWbemObjectSink*), ())
  UNSERVED(QueryObjectSink, (LONG, IWbemObjectSink** sink), (sink))
  UNSERVED(GetObject,
           (const BSTR, LONG, IWbemContext*, IWbemClassObject** object, IWbemCallResult**),
           (object))
  UNSERVED(GetObjectAsync, (const BSTR, LONG, IWbemContext*, IWbemObjectSink*), ())
  UNSERVED(PutClass, (IWbemClassObject*, LONG, IWbemContext*, IWbemCallResult**), ())
  UNSERVED(PutClassAsync, (IWbemClassObject*, LONG, IWbemContext*, IWbemObjectSink*), ())
  UNSERVED(DeleteClass, (const BSTR, LONG, IWbemContext*, IWbemCallResult**), ())
  UNSERVED(DeleteClassAsync, (const BSTR, LONG, IWbemContext*, IWbemObjectSink*), ())
  UNSERVED(CreateClassEnum, (const BSTR, LONG, IWbemContext*, IEnumWbemClassObject** classes),
           (classes))
  UNSERVED(CreateClassEnumAsync, (const BSTR, LONG, IWbemContext*, IWbemObjectSink*), ())
  UNSERVED(PutInstance, (IWbemClassObject*, LONG, IWbemContext*, IWbemCallResult**), ())
  UNSERVED(PutInstanceAsync, (IWbemClassObject*, LONG, IWbemContext*, IWbemObjectSink*), ())
  UNSERVED(DeleteInstance, (const BSTR, LONG, IWbemContext*, IWbemCallResult**), ())
  UNSERVED(DeleteInstanceAsync, (const BSTR, LONG, IWbemContext*, IWbemObjectSink*), ())
  UNSERVED(CreateInstanceEnum, (const BSTR, LONG, IWbemContext*, IEnumWbemClassObject** instances),
           (instances))
  UNSERVED(CreateInstanceEnumAsync, (const BSTR, LONG, IWbemContext*, IWbemObjectSink*), ())
  UNSERVED(ExecQuery,
           (const BSTR, const BSTR, LONG, IWbemContext*, IEnumWbemClassObject** instances),
           (instances))
  UNSERVED(ExecQueryAsync, (const BSTR, const BSTR, LONG, IWbemContext*, IWbemObjectSink*), ())
  UNSERVED(ExecNotificationQuery,
           (const BSTR, const BSTR, LONG, IWbemContext*, IEnumWbemClassObject** events), (events))
  UNSERVED(ExecNotificationQueryAsync,
           (const BSTR, const BSTR, LONG, IWbemContext*, IWbemObjectSink*), ())
  UNSERVED(ExecMethod,
           (const BSTR, const BSTR, LONG, IWbemContext*, IWbemClassObject*, IWbemClassObject** out,
            IWbemCallResult**),
           (out))
  UNSERVED(ExecMethodAsync,
           (const BSTR, const BSTR, LONG, IWbemContext*, IWbemClassObject*, IWbemObjectSink*), ())
#undef UNSERVED

 private:
  static HRESULT Refuse() {
    return kAnswer;
  }
  template <class Interface>
  static HRESULT Refuse([[maybe_unused]] Interface** result) {
    if constexpr (kClearsResults) {
      if (result != nullptr) *result = nullptr;
    }
    return kAnswer;
  }
};

}  // namespace platform
