#include "host/service/request_sink.h"

#include <utility>

#include "host/service/class_object.h"
#include "host/service/result_text.h"

namespace host {

RequestSink::RequestSink(Defects& defects, std::string request, const ClassInfo* expected)
    : ComObject("the sink"), defects_(defects), request_(std::move(request)), expected_(expected) {}

bool RequestSink::Accept(IWbemClassObject* object) {
  if (object == nullptr) {
    Report("Indicate with a missing object");
    return false;
  }
  const ClassObject* known = ClassObject::From(object);
  if (known == nullptr) {
    Report("Indicate with an object that was not spawned from a class definition");
    return false;
  }
  if (known->object().IsClass()) {
    Report("Indicate with a class definition instead of an instance");
    return false;
  }
  if (expected_ != nullptr && &known->object().info() != expected_) {
    Report("Indicate with an instance of " + known->object().info().name() + " instead of " +
           expected_->name());
    return false;
  }
  if (visitor_ != nullptr) {
    (*visitor_)(known->object());
  } else {
    objects_.push_back(known->object());
  }
  return true;
}

HRESULT RequestSink::Indicate(LONG count, IWbemClassObject** objects) {
  if (status_) {
    Report("Indicate after the final status");
    return WBEM_E_UNEXPECTED;
  }
  if (count < 1 || objects == nullptr) {
    Report("Indicate with " +
           (objects == nullptr ? std::string("no array") : std::to_string(count) + " objects"));
    return WBEM_E_INVALID_PARAMETER;
  }
  bool accepted = true;
  for (LONG index = 0; index < count; ++index) accepted = Accept(objects[index]) && accepted;
  return accepted ? S_OK : WBEM_E_INVALID_OBJECT;
}

HRESULT RequestSink::SetStatus(LONG flags, HRESULT status, BSTR, IWbemClassObject*) {
  if (status_) {
    Report("SetStatus again after the final status");
    return WBEM_E_UNEXPECTED;
  }
  if (flags != WBEM_STATUS_COMPLETE) Report("SetStatus with flags " + std::to_string(flags));
  status_ = status;
  return S_OK;
}

Outcome RequestSink::Finish(HRESULT returned) {
  if (!status_) {
    Report("no final status");
  } else if (*status_ != returned) {
    Report("returned " + DescribeResult(returned) + ", but its status was " +
           DescribeResult(*status_));
  }
  return {status_.value_or(returned), std::move(objects_)};
}

HRESULT InitSink::SetStatus(LONG status, LONG flags) {
  if (status_) defects_.Add("Initialize: SetStatus again after the final status");
  if (flags != 0) defects_.Add("Initialize: SetStatus with flags " + std::to_string(flags));
  status_ = status;
  return S_OK;
}

HRESULT InitSink::Finish() {
  if (!status_) defects_.Add("Initialize: no final status");
  return status_.value_or(WBEM_E_INITIALIZATION_FAILURE);
}

}  // namespace host
