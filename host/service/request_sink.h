#pragma once

#include <functional>
#include <optional>
#include <string>
#include <vector>

#include "host/service/cim_object.h"
#include "host/service/com_object.h"

namespace host {

/// The outcome of a request: its status and the objects, copied when they were indicated.
struct Outcome {
  HRESULT status = S_OK;
  std::vector<CimObject> objects;
};

/// Receives each object while its request runs.
using ObjectVisitor = std::function<void(const CimObject&)>;

/// The sink of one request; reports every call that violates the contract.
class RequestSink final : public ComObject<IWbemObjectSink, IID_IWbemObjectSink> {
 public:
  /// `expected` is the class of the requested instances, null if instances of any class of the
  /// schema are allowed. `request` is used in reports. The sink must not outlive any of them.
  RequestSink(Defects& defects, std::string request, const ClassInfo* expected);

  /// Passes each object to `visitor`, which outlives the sink, instead of adding it to the outcome.
  void Visit(const ObjectVisitor* visitor) { visitor_ = visitor; }

  HRESULT STDMETHODCALLTYPE Indicate(LONG count, IWbemClassObject** objects) override;
  HRESULT STDMETHODCALLTYPE SetStatus(LONG flags, HRESULT status, BSTR text,
                                      IWbemClassObject* object) override;

  /// Ends the request, whose call returned `returned`, which is the outcome's status if no final
  /// status was set.
  Outcome Finish(HRESULT returned);

 private:
  void Report(const std::string& sentence) { defects_.Add(request_ + ": " + sentence); }
  bool Accept(IWbemClassObject* object);

  Defects& defects_;
  std::string request_;
  const ClassInfo* expected_;
  const ObjectVisitor* visitor_ = nullptr;
  std::optional<HRESULT> status_;
  std::vector<CimObject> objects_;
};

/// The sink of Initialize: exactly one status.
class InitSink final : public ComObject<IWbemProviderInitSink, IID_IWbemProviderInitSink> {
 public:
  explicit InitSink(Defects& defects) : ComObject("the init sink"), defects_(defects) {}

  HRESULT STDMETHODCALLTYPE SetStatus(LONG status, LONG flags) override;
  /// The status that was set; a missing one is reported and counts as a failure.
  HRESULT Finish();

 private:
  Defects& defects_;
  std::optional<HRESULT> status_;
};

}  // namespace host
