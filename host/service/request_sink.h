#pragma once

#include <functional>
#include <optional>
#include <string>
#include <vector>

#include "host/service/cim_object.h"
#include "host/service/com_object.h"

namespace host {

/// What a request gave: its status and the objects, copied as they were indicated.
struct Outcome {
  HRESULT status = S_OK;
  std::vector<CimObject> objects;
};

/// Is given each object while its request runs.
using ObjectVisitor = std::function<void(const CimObject&)>;

/// The sink of one request; reports every call that breaks the contract.
class RequestSink final : public ComObject<IWbemObjectSink, IID_IWbemObjectSink> {
 public:
  /// `expected` is the class of which instances are asked, null where any class of the schema may
  /// come. `request` stands in reports. All outlive the sink.
  RequestSink(Defects& defects, std::string request, const ClassInfo* expected);

  /// Each object goes to `visitor`, which outlives the sink, instead of into the outcome.
  void Visit(const ObjectVisitor* visitor) { visitor_ = visitor; }

  HRESULT STDMETHODCALLTYPE Indicate(LONG count, IWbemClassObject** objects) override;
  HRESULT STDMETHODCALLTYPE SetStatus(LONG flags, HRESULT status, BSTR text,
                                      IWbemClassObject* object) override;

  /// Ends the request, which returned `returned`; without a final status that is the outcome's.
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
