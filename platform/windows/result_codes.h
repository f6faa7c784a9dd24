#pragma once
// The management service's codes as signed results: the platform's headers hold them in unsigned
// enumerations, which neither compare with nor narrow to a result.

#include <wbemcli.h>

namespace platform::result_codes {

inline constexpr HRESULT kWBEM_S_NO_ERROR = static_cast<HRESULT>(::WBEM_S_NO_ERROR);
inline constexpr HRESULT kWBEM_S_FALSE = static_cast<HRESULT>(::WBEM_S_FALSE);
inline constexpr HRESULT kWBEM_S_NO_MORE_DATA = static_cast<HRESULT>(::WBEM_S_NO_MORE_DATA);
inline constexpr HRESULT kWBEM_E_FAILED = static_cast<HRESULT>(::WBEM_E_FAILED);
inline constexpr HRESULT kWBEM_E_NOT_FOUND = static_cast<HRESULT>(::WBEM_E_NOT_FOUND);
inline constexpr HRESULT kWBEM_E_ACCESS_DENIED = static_cast<HRESULT>(::WBEM_E_ACCESS_DENIED);
inline constexpr HRESULT kWBEM_E_PROVIDER_FAILURE = static_cast<HRESULT>(::WBEM_E_PROVIDER_FAILURE);
inline constexpr HRESULT kWBEM_E_TYPE_MISMATCH = static_cast<HRESULT>(::WBEM_E_TYPE_MISMATCH);
inline constexpr HRESULT kWBEM_E_OUT_OF_MEMORY = static_cast<HRESULT>(::WBEM_E_OUT_OF_MEMORY);
inline constexpr HRESULT kWBEM_E_INVALID_CONTEXT = static_cast<HRESULT>(::WBEM_E_INVALID_CONTEXT);
inline constexpr HRESULT kWBEM_E_INVALID_PARAMETER =
    static_cast<HRESULT>(::WBEM_E_INVALID_PARAMETER);
inline constexpr HRESULT kWBEM_E_NOT_AVAILABLE = static_cast<HRESULT>(::WBEM_E_NOT_AVAILABLE);
inline constexpr HRESULT kWBEM_E_CRITICAL_ERROR = static_cast<HRESULT>(::WBEM_E_CRITICAL_ERROR);
inline constexpr HRESULT kWBEM_E_NOT_SUPPORTED = static_cast<HRESULT>(::WBEM_E_NOT_SUPPORTED);
inline constexpr HRESULT kWBEM_E_INVALID_NAMESPACE =
    static_cast<HRESULT>(::WBEM_E_INVALID_NAMESPACE);
inline constexpr HRESULT kWBEM_E_INVALID_OBJECT = static_cast<HRESULT>(::WBEM_E_INVALID_OBJECT);
inline constexpr HRESULT kWBEM_E_INVALID_CLASS = static_cast<HRESULT>(::WBEM_E_INVALID_CLASS);
inline constexpr HRESULT kWBEM_E_PROVIDER_NOT_FOUND =
    static_cast<HRESULT>(::WBEM_E_PROVIDER_NOT_FOUND);
inline constexpr HRESULT kWBEM_E_PROVIDER_LOAD_FAILURE =
    static_cast<HRESULT>(::WBEM_E_PROVIDER_LOAD_FAILURE);
inline constexpr HRESULT kWBEM_E_INITIALIZATION_FAILURE =
    static_cast<HRESULT>(::WBEM_E_INITIALIZATION_FAILURE);
inline constexpr HRESULT kWBEM_E_INVALID_QUERY = static_cast<HRESULT>(::WBEM_E_INVALID_QUERY);
inline constexpr HRESULT kWBEM_E_INVALID_QUERY_TYPE =
    static_cast<HRESULT>(::WBEM_E_INVALID_QUERY_TYPE);
inline constexpr HRESULT kWBEM_E_UNEXPECTED = static_cast<HRESULT>(::WBEM_E_UNEXPECTED);
inline constexpr HRESULT kWBEM_E_READ_ONLY = static_cast<HRESULT>(::WBEM_E_READ_ONLY);
inline constexpr HRESULT kWBEM_E_PROVIDER_NOT_CAPABLE =
    static_cast<HRESULT>(::WBEM_E_PROVIDER_NOT_CAPABLE);
inline constexpr HRESULT kWBEM_E_ILLEGAL_NULL = static_cast<HRESULT>(::WBEM_E_ILLEGAL_NULL);
inline constexpr HRESULT kWBEM_E_VALUE_OUT_OF_RANGE =
    static_cast<HRESULT>(::WBEM_E_VALUE_OUT_OF_RANGE);
inline constexpr HRESULT kWBEM_E_INVALID_METHOD = static_cast<HRESULT>(::WBEM_E_INVALID_METHOD);
inline constexpr HRESULT kWBEM_E_INVALID_METHOD_PARAMETERS =
    static_cast<HRESULT>(::WBEM_E_INVALID_METHOD_PARAMETERS);
inline constexpr HRESULT kWBEM_E_INVALID_PROPERTY = static_cast<HRESULT>(::WBEM_E_INVALID_PROPERTY);
inline constexpr HRESULT kWBEM_E_CALL_CANCELLED = static_cast<HRESULT>(::WBEM_E_CALL_CANCELLED);
inline constexpr HRESULT kWBEM_E_INVALID_OBJECT_PATH =
    static_cast<HRESULT>(::WBEM_E_INVALID_OBJECT_PATH);
inline constexpr HRESULT kWBEM_E_METHOD_NOT_IMPLEMENTED =
    static_cast<HRESULT>(::WBEM_E_METHOD_NOT_IMPLEMENTED);

inline constexpr LONG kWBEM_INFINITE = static_cast<LONG>(::WBEM_INFINITE);

}  // namespace platform::result_codes

// clang-format off
#define WBEM_S_NO_ERROR ::platform::result_codes::kWBEM_S_NO_ERROR
#define WBEM_S_FALSE ::platform::result_codes::kWBEM_S_FALSE
#define WBEM_S_NO_MORE_DATA ::platform::result_codes::kWBEM_S_NO_MORE_DATA
#define WBEM_E_FAILED ::platform::result_codes::kWBEM_E_FAILED
#define WBEM_E_NOT_FOUND ::platform::result_codes::kWBEM_E_NOT_FOUND
#define WBEM_E_ACCESS_DENIED ::platform::result_codes::kWBEM_E_ACCESS_DENIED
#define WBEM_E_PROVIDER_FAILURE ::platform::result_codes::kWBEM_E_PROVIDER_FAILURE
#define WBEM_E_TYPE_MISMATCH ::platform::result_codes::kWBEM_E_TYPE_MISMATCH
#define WBEM_E_OUT_OF_MEMORY ::platform::result_codes::kWBEM_E_OUT_OF_MEMORY
#define WBEM_E_INVALID_CONTEXT ::platform::result_codes::kWBEM_E_INVALID_CONTEXT
#define WBEM_E_INVALID_PARAMETER ::platform::result_codes::kWBEM_E_INVALID_PARAMETER
#define WBEM_E_NOT_AVAILABLE ::platform::result_codes::kWBEM_E_NOT_AVAILABLE
#define WBEM_E_CRITICAL_ERROR ::platform::result_codes::kWBEM_E_CRITICAL_ERROR
#define WBEM_E_NOT_SUPPORTED ::platform::result_codes::kWBEM_E_NOT_SUPPORTED
#define WBEM_E_INVALID_NAMESPACE ::platform::result_codes::kWBEM_E_INVALID_NAMESPACE
#define WBEM_E_INVALID_OBJECT ::platform::result_codes::kWBEM_E_INVALID_OBJECT
#define WBEM_E_INVALID_CLASS ::platform::result_codes::kWBEM_E_INVALID_CLASS
#define WBEM_E_PROVIDER_NOT_FOUND ::platform::result_codes::kWBEM_E_PROVIDER_NOT_FOUND
#define WBEM_E_PROVIDER_LOAD_FAILURE ::platform::result_codes::kWBEM_E_PROVIDER_LOAD_FAILURE
#define WBEM_E_INITIALIZATION_FAILURE ::platform::result_codes::kWBEM_E_INITIALIZATION_FAILURE
#define WBEM_E_INVALID_QUERY ::platform::result_codes::kWBEM_E_INVALID_QUERY
#define WBEM_E_INVALID_QUERY_TYPE ::platform::result_codes::kWBEM_E_INVALID_QUERY_TYPE
#define WBEM_E_UNEXPECTED ::platform::result_codes::kWBEM_E_UNEXPECTED
#define WBEM_E_READ_ONLY ::platform::result_codes::kWBEM_E_READ_ONLY
#define WBEM_E_PROVIDER_NOT_CAPABLE ::platform::result_codes::kWBEM_E_PROVIDER_NOT_CAPABLE
#define WBEM_E_ILLEGAL_NULL ::platform::result_codes::kWBEM_E_ILLEGAL_NULL
#define WBEM_E_VALUE_OUT_OF_RANGE ::platform::result_codes::kWBEM_E_VALUE_OUT_OF_RANGE
#define WBEM_E_INVALID_METHOD ::platform::result_codes::kWBEM_E_INVALID_METHOD
#define WBEM_E_INVALID_METHOD_PARAMETERS ::platform::result_codes::kWBEM_E_INVALID_METHOD_PARAMETERS
#define WBEM_E_INVALID_PROPERTY ::platform::result_codes::kWBEM_E_INVALID_PROPERTY
#define WBEM_E_CALL_CANCELLED ::platform::result_codes::kWBEM_E_CALL_CANCELLED
#define WBEM_E_INVALID_OBJECT_PATH ::platform::result_codes::kWBEM_E_INVALID_OBJECT_PATH
#define WBEM_E_METHOD_NOT_IMPLEMENTED ::platform::result_codes::kWBEM_E_METHOD_NOT_IMPLEMENTED
#define WBEM_INFINITE ::platform::result_codes::kWBEM_INFINITE
// clang-format on
