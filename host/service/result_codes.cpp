#include "host/service/result_codes.h"

#include <array>
#include <cstdint>
#include <cstdio>

namespace host {
namespace {

struct ResultCode {
  HRESULT code;
  const char* name;
  const char* meaning;
};

#define RESULT_CODE(name, meaning)             \
  ResultCode {                                 \
    static_cast<HRESULT>(name), #name, meaning \
  }

const ResultCode kResultCodes[] = {
    RESULT_CODE(WBEM_S_NO_ERROR, "success"),
    RESULT_CODE(WBEM_S_FALSE, "success, with fewer results than asked"),
    RESULT_CODE(WBEM_S_NO_MORE_DATA, "no more data"),
    RESULT_CODE(WBEM_E_FAILED, "failed"),
    RESULT_CODE(WBEM_E_NOT_FOUND, "not found"),
    RESULT_CODE(WBEM_E_ACCESS_DENIED, "access denied"),
    RESULT_CODE(WBEM_E_PROVIDER_FAILURE, "the provider failed"),
    RESULT_CODE(WBEM_E_TYPE_MISMATCH, "a value has the wrong type"),
    RESULT_CODE(WBEM_E_OUT_OF_MEMORY, "out of memory"),
    RESULT_CODE(WBEM_E_INVALID_CONTEXT, "invalid context"),
    RESULT_CODE(WBEM_E_INVALID_PARAMETER, "invalid parameter"),
    RESULT_CODE(WBEM_E_NOT_AVAILABLE, "not available"),
    RESULT_CODE(WBEM_E_CRITICAL_ERROR, "critical error"),
    RESULT_CODE(WBEM_E_NOT_SUPPORTED, "not supported"),
    RESULT_CODE(WBEM_E_INVALID_NAMESPACE, "no such namespace"),
    RESULT_CODE(WBEM_E_INVALID_OBJECT, "invalid object"),
    RESULT_CODE(WBEM_E_INVALID_CLASS, "no such class"),
    RESULT_CODE(WBEM_E_PROVIDER_NOT_FOUND, "provider not found"),
    RESULT_CODE(WBEM_E_PROVIDER_LOAD_FAILURE, "the provider cannot be loaded"),
    RESULT_CODE(WBEM_E_INITIALIZATION_FAILURE, "the provider did not start"),
    RESULT_CODE(WBEM_E_INVALID_QUERY, "invalid query"),
    RESULT_CODE(WBEM_E_INVALID_QUERY_TYPE, "unknown query language"),
    RESULT_CODE(WBEM_E_UNEXPECTED, "unexpected call"),
    RESULT_CODE(WBEM_E_READ_ONLY, "read-only"),
    RESULT_CODE(WBEM_E_PROVIDER_NOT_CAPABLE, "the provider cannot do that"),
    RESULT_CODE(WBEM_E_ILLEGAL_NULL, "a value is missing"),
    RESULT_CODE(WBEM_E_VALUE_OUT_OF_RANGE, "a value is out of range"),
    RESULT_CODE(WBEM_E_INVALID_METHOD, "no such method"),
    RESULT_CODE(WBEM_E_INVALID_METHOD_PARAMETERS, "invalid method parameters"),
    RESULT_CODE(WBEM_E_INVALID_PROPERTY, "no such property"),
    RESULT_CODE(WBEM_E_CALL_CANCELLED, "call cancelled"),
    RESULT_CODE(WBEM_E_INVALID_OBJECT_PATH, "invalid object path"),
    RESULT_CODE(WBEM_E_METHOD_NOT_IMPLEMENTED, "the method has no implementation"),
    RESULT_CODE(E_NOTIMPL, "no implementation"),
    RESULT_CODE(E_NOINTERFACE, "no such interface"),
    RESULT_CODE(E_POINTER, "a pointer is missing"),
    RESULT_CODE(E_FAIL, "failed"),
    RESULT_CODE(E_UNEXPECTED, "unexpected failure"),
    RESULT_CODE(E_ACCESSDENIED, "access denied"),
    RESULT_CODE(E_OUTOFMEMORY, "out of memory"),
    RESULT_CODE(E_INVALIDARG, "invalid argument"),
    RESULT_CODE(CLASS_E_NOAGGREGATION, "aggregation is not possible"),
    RESULT_CODE(CLASS_E_CLASSNOTAVAILABLE, "the module does not have the class"),
    RESULT_CODE(DISP_E_TYPEMISMATCH, "a value cannot be converted"),
    RESULT_CODE(DISP_E_OVERFLOW, "a value is out of range"),
};

}  // namespace

std::string DescribeResult(HRESULT result) {
  std::array<char, 16> number{};
  std::snprintf(number.data(), number.size(), "0x%08X", static_cast<unsigned>(result));
  for (const ResultCode& row : kResultCodes) {
    if (row.code == result)
      return std::string(row.name) + " (" + number.data() + "): " + row.meaning;
  }
  return std::string(number.data()) + ": " + (FAILED(result) ? "failed" : "not zero");
}

bool MeansNotFound(HRESULT result) {
  return result == static_cast<HRESULT>(WBEM_E_NOT_FOUND) ||
         result == static_cast<HRESULT>(WBEM_E_INVALID_CLASS);
}

}  // namespace host
