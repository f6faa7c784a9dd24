#include "host/service/result_text.h"

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

#define COM_RESULT(name, bits, meaning) {name, #name, meaning},
#define WBEM_RESULT(name, bits, meaning) {name, #name, meaning},
constexpr ResultCode kResultCodes[] = {
#include "platform/tables/result_codes.inc"
    {kLate, "RPC_E_TIMEOUT", "no answer in time"},
    // Codes of a connection to another machine's service.
    {static_cast<HRESULT>(0x80041015), "WBEM_E_TRANSPORT_FAILURE",
     "there is no such machine, or it cannot be reached"},
    {static_cast<HRESULT>(0x800706BA), "RPC_S_SERVER_UNAVAILABLE",
     "there is no such machine, or its service cannot be reached"},
    {static_cast<HRESULT>(0x800706BF), "RPC_S_CALL_FAILED_DNE", "its service does not answer"},
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
  return result == WBEM_E_NOT_FOUND || result == WBEM_E_INVALID_CLASS;
}

bool MeansUnanswered(HRESULT result) {
  return result == kLate || result == WBEM_E_CALL_CANCELLED;
}

}  // namespace host
