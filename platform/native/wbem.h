#pragma once
// The interfaces and codes of the management service. Operations are in the order of their vtable
// slots.

#include "platform/native/automation.h"

using CIMTYPE = LONG;

enum WBEM_GENERIC_FLAG_TYPE : LONG {
  WBEM_FLAG_RETURN_WBEM_COMPLETE = 0,
  WBEM_FLAG_RETURN_IMMEDIATELY = 0x10,
  WBEM_FLAG_FORWARD_ONLY = 0x20,
  WBEM_FLAG_DIRECT_READ = 0x200,
};
enum WBEM_CONDITION_FLAG_TYPE : LONG { WBEM_FLAG_NONSYSTEM_ONLY = 0x40 };
enum WBEM_STATUS_TYPE : LONG { WBEM_STATUS_COMPLETE = 0 };
enum WBEM_TIMEOUT_TYPE : LONG { WBEM_NO_WAIT = 0, WBEM_INFINITE = -1 };
enum WBEM_FLAVOR_TYPE : LONG { WBEM_FLAVOR_ORIGIN_LOCAL = 0, WBEM_FLAVOR_ORIGIN_SYSTEM = 0x40 };
enum WBEM_PROVIDER_REQUIREMENTS_TYPE : LONG { WBEM_S_INITIALIZED = 0 };
enum CIMTYPE_ENUMERATION : LONG {
  CIM_ILLEGAL = 0xFFF,
  CIM_EMPTY = 0,
  CIM_SINT16 = 2,
  CIM_SINT32 = 3,
  CIM_STRING = 8,
  CIM_BOOLEAN = 11,
  CIM_OBJECT = 13,
  CIM_UINT8 = 17,
  CIM_UINT16 = 18,
  CIM_UINT32 = 19,
  CIM_REFERENCE = 102,
  CIM_FLAG_ARRAY = 0x2000,
};

#define WBEM_RESULT(name, bits, meaning) inline constexpr HRESULT name = HResultOf(bits);
#include "platform/tables/result_codes.inc"

inline constexpr IID IID_IWbemContext = {
    0x44aca674, 0xe8fc, 0x11d0, {0xA0, 0x7C, 0x00, 0xC0, 0x4F, 0xB6, 0x88, 0x20}};
inline constexpr IID IID_IWbemQualifierSet = {
    0xdc12a680, 0x737f, 0x11cf, {0x88, 0x4D, 0x00, 0xAA, 0x00, 0x4B, 0x2E, 0x24}};
inline constexpr IID IID_IWbemClassObject = {
    0xdc12a681, 0x737f, 0x11cf, {0x88, 0x4D, 0x00, 0xAA, 0x00, 0x4B, 0x2E, 0x24}};
inline constexpr IID IID_IWbemObjectSink = {
    0x7c857801, 0x7381, 0x11cf, {0x88, 0x4D, 0x00, 0xAA, 0x00, 0x4B, 0x2E, 0x24}};
inline constexpr IID IID_IEnumWbemClassObject = {
    0x027947e1, 0xd731, 0x11ce, {0xA3, 0x57, 0x00, 0x00, 0x00, 0x00, 0x00, 0x01}};
inline constexpr IID IID_IWbemServices = {
    0x9556dc99, 0x828c, 0x11cf, {0xA3, 0x7E, 0x00, 0xAA, 0x00, 0x32, 0x40, 0xC7}};
inline constexpr IID IID_IWbemProviderInit = {
    0x1be41572, 0x91dd, 0x11d1, {0xAE, 0xB2, 0x00, 0xC0, 0x4F, 0xB6, 0x88, 0x20}};
inline constexpr IID IID_IWbemProviderInitSink = {
    0x1be41571, 0x91dd, 0x11d1, {0xAE, 0xB2, 0x00, 0xC0, 0x4F, 0xB6, 0x88, 0x20}};

struct IWbemServices;
struct IWbemCallResult;

struct IWbemContext : IUnknown {
  virtual HRESULT STDMETHODCALLTYPE Clone(IWbemContext** newCopy) = 0;
  virtual HRESULT STDMETHODCALLTYPE GetNames(LONG flags, SAFEARRAY** names) = 0;
  virtual HRESULT STDMETHODCALLTYPE BeginEnumeration(LONG flags) = 0;
  virtual HRESULT STDMETHODCALLTYPE Next(LONG flags, BSTR* name, VARIANT* value) = 0;
  virtual HRESULT STDMETHODCALLTYPE EndEnumeration() = 0;
  virtual HRESULT STDMETHODCALLTYPE SetValue(LPCWSTR name, LONG flags, VARIANT* value) = 0;
  virtual HRESULT STDMETHODCALLTYPE GetValue(LPCWSTR name, LONG flags, VARIANT* value) = 0;
  virtual HRESULT STDMETHODCALLTYPE DeleteValue(LPCWSTR name, LONG flags) = 0;
  virtual HRESULT STDMETHODCALLTYPE DeleteAll() = 0;

 protected:
  ~IWbemContext() = default;
};

struct IWbemQualifierSet : IUnknown {
  virtual HRESULT STDMETHODCALLTYPE Get(LPCWSTR name, LONG flags, VARIANT* val, LONG* flavor) = 0;
  virtual HRESULT STDMETHODCALLTYPE Put(LPCWSTR name, VARIANT* val, LONG flavor) = 0;
  virtual HRESULT STDMETHODCALLTYPE Delete(LPCWSTR name) = 0;
  virtual HRESULT STDMETHODCALLTYPE GetNames(LONG flags, SAFEARRAY** names) = 0;
  virtual HRESULT STDMETHODCALLTYPE BeginEnumeration(LONG flags) = 0;
  virtual HRESULT STDMETHODCALLTYPE Next(LONG flags, BSTR* name, VARIANT* val, LONG* flavor) = 0;
  virtual HRESULT STDMETHODCALLTYPE EndEnumeration() = 0;

 protected:
  ~IWbemQualifierSet() = default;
};

struct IWbemClassObject : IUnknown {
  virtual HRESULT STDMETHODCALLTYPE GetQualifierSet(IWbemQualifierSet** qualSet) = 0;
  virtual HRESULT STDMETHODCALLTYPE Get(LPCWSTR name, LONG flags, VARIANT* val, CIMTYPE* type,
                                        LONG* flavor) = 0;
  virtual HRESULT STDMETHODCALLTYPE Put(LPCWSTR name, LONG flags, VARIANT* val, CIMTYPE type) = 0;
  virtual HRESULT STDMETHODCALLTYPE Delete(LPCWSTR name) = 0;
  virtual HRESULT STDMETHODCALLTYPE GetNames(LPCWSTR qualifierName, LONG flags,
                                             VARIANT* qualifierVal, SAFEARRAY** names) = 0;
  virtual HRESULT STDMETHODCALLTYPE BeginEnumeration(LONG enumFlags) = 0;
  virtual HRESULT STDMETHODCALLTYPE Next(LONG flags, BSTR* name, VARIANT* val, CIMTYPE* type,
                                         LONG* flavor) = 0;
  virtual HRESULT STDMETHODCALLTYPE EndEnumeration() = 0;
  virtual HRESULT STDMETHODCALLTYPE GetPropertyQualifierSet(LPCWSTR property,
                                                            IWbemQualifierSet** qualSet) = 0;
  virtual HRESULT STDMETHODCALLTYPE Clone(IWbemClassObject** copy) = 0;
  virtual HRESULT STDMETHODCALLTYPE GetObjectText(LONG flags, BSTR* objectText) = 0;
  virtual HRESULT STDMETHODCALLTYPE SpawnDerivedClass(LONG flags, IWbemClassObject** newClass) = 0;
  virtual HRESULT STDMETHODCALLTYPE SpawnInstance(LONG flags, IWbemClassObject** newInstance) = 0;
  virtual HRESULT STDMETHODCALLTYPE CompareTo(LONG flags, IWbemClassObject* compareTo) = 0;
  virtual HRESULT STDMETHODCALLTYPE GetPropertyOrigin(LPCWSTR name, BSTR* className) = 0;
  virtual HRESULT STDMETHODCALLTYPE InheritsFrom(LPCWSTR ancestor) = 0;
  virtual HRESULT STDMETHODCALLTYPE GetMethod(LPCWSTR name, LONG flags,
                                              IWbemClassObject** inSignature,
                                              IWbemClassObject** outSignature) = 0;
  virtual HRESULT STDMETHODCALLTYPE PutMethod(LPCWSTR name, LONG flags,
                                              IWbemClassObject* inSignature,
                                              IWbemClassObject* outSignature) = 0;
  virtual HRESULT STDMETHODCALLTYPE DeleteMethod(LPCWSTR name) = 0;
  virtual HRESULT STDMETHODCALLTYPE BeginMethodEnumeration(LONG enumFlags) = 0;
  virtual HRESULT STDMETHODCALLTYPE NextMethod(LONG flags, BSTR* name,
                                               IWbemClassObject** inSignature,
                                               IWbemClassObject** outSignature) = 0;
  virtual HRESULT STDMETHODCALLTYPE EndMethodEnumeration() = 0;
  virtual HRESULT STDMETHODCALLTYPE GetMethodQualifierSet(LPCWSTR method,
                                                          IWbemQualifierSet** qualSet) = 0;
  virtual HRESULT STDMETHODCALLTYPE GetMethodOrigin(LPCWSTR methodName, BSTR* className) = 0;

 protected:
  ~IWbemClassObject() = default;
};

struct IWbemObjectSink : IUnknown {
  virtual HRESULT STDMETHODCALLTYPE Indicate(LONG objectCount, IWbemClassObject** objArray) = 0;
  virtual HRESULT STDMETHODCALLTYPE SetStatus(LONG flags, HRESULT status, BSTR param,
                                              IWbemClassObject* objParam) = 0;

 protected:
  ~IWbemObjectSink() = default;
};

struct IEnumWbemClassObject : IUnknown {
  virtual HRESULT STDMETHODCALLTYPE Reset() = 0;
  virtual HRESULT STDMETHODCALLTYPE Next(LONG timeout, ULONG count, IWbemClassObject** objects,
                                         ULONG* returned) = 0;
  virtual HRESULT STDMETHODCALLTYPE NextAsync(ULONG count, IWbemObjectSink* sink) = 0;
  virtual HRESULT STDMETHODCALLTYPE Clone(IEnumWbemClassObject** enumerator) = 0;
  virtual HRESULT STDMETHODCALLTYPE Skip(LONG timeout, ULONG count) = 0;

 protected:
  ~IEnumWbemClassObject() = default;
};

struct IWbemServices : IUnknown {
  virtual HRESULT STDMETHODCALLTYPE OpenNamespace(const BSTR namespaceName, LONG flags,
                                                  IWbemContext* ctx,
                                                  IWbemServices** workingNamespace,
                                                  IWbemCallResult** result) = 0;
  virtual HRESULT STDMETHODCALLTYPE CancelAsyncCall(IWbemObjectSink* sink) = 0;
  virtual HRESULT STDMETHODCALLTYPE QueryObjectSink(LONG flags,
                                                    IWbemObjectSink** responseHandler) = 0;
  virtual HRESULT STDMETHODCALLTYPE GetObject(const BSTR objectPath, LONG flags, IWbemContext* ctx,
                                              IWbemClassObject** object,
                                              IWbemCallResult** callResult) = 0;
  virtual HRESULT STDMETHODCALLTYPE GetObjectAsync(const BSTR objectPath, LONG flags,
                                                   IWbemContext* ctx,
                                                   IWbemObjectSink* responseHandler) = 0;
  virtual HRESULT STDMETHODCALLTYPE PutClass(IWbemClassObject* object, LONG flags,
                                             IWbemContext* ctx, IWbemCallResult** callResult) = 0;
  virtual HRESULT STDMETHODCALLTYPE PutClassAsync(IWbemClassObject* object, LONG flags,
                                                  IWbemContext* ctx,
                                                  IWbemObjectSink* responseHandler) = 0;
  virtual HRESULT STDMETHODCALLTYPE DeleteClass(const BSTR className, LONG flags, IWbemContext* ctx,
                                                IWbemCallResult** callResult) = 0;
  virtual HRESULT STDMETHODCALLTYPE DeleteClassAsync(const BSTR className, LONG flags,
                                                     IWbemContext* ctx,
                                                     IWbemObjectSink* responseHandler) = 0;
  virtual HRESULT STDMETHODCALLTYPE CreateClassEnum(const BSTR superclass, LONG flags,
                                                    IWbemContext* ctx,
                                                    IEnumWbemClassObject** enumerator) = 0;
  virtual HRESULT STDMETHODCALLTYPE CreateClassEnumAsync(const BSTR superclass, LONG flags,
                                                         IWbemContext* ctx,
                                                         IWbemObjectSink* responseHandler) = 0;
  virtual HRESULT STDMETHODCALLTYPE PutInstance(IWbemClassObject* inst, LONG flags,
                                                IWbemContext* ctx,
                                                IWbemCallResult** callResult) = 0;
  virtual HRESULT STDMETHODCALLTYPE PutInstanceAsync(IWbemClassObject* inst, LONG flags,
                                                     IWbemContext* ctx,
                                                     IWbemObjectSink* responseHandler) = 0;
  virtual HRESULT STDMETHODCALLTYPE DeleteInstance(const BSTR objectPath, LONG flags,
                                                   IWbemContext* ctx,
                                                   IWbemCallResult** callResult) = 0;
  virtual HRESULT STDMETHODCALLTYPE DeleteInstanceAsync(const BSTR objectPath, LONG flags,
                                                        IWbemContext* ctx,
                                                        IWbemObjectSink* responseHandler) = 0;
  virtual HRESULT STDMETHODCALLTYPE CreateInstanceEnum(const BSTR filter, LONG flags,
                                                       IWbemContext* ctx,
                                                       IEnumWbemClassObject** enumerator) = 0;
  virtual HRESULT STDMETHODCALLTYPE CreateInstanceEnumAsync(const BSTR filter, LONG flags,
                                                            IWbemContext* ctx,
                                                            IWbemObjectSink* responseHandler) = 0;
  virtual HRESULT STDMETHODCALLTYPE ExecQuery(const BSTR queryLanguage, const BSTR query,
                                              LONG flags, IWbemContext* ctx,
                                              IEnumWbemClassObject** enumerator) = 0;
  virtual HRESULT STDMETHODCALLTYPE ExecQueryAsync(const BSTR queryLanguage, const BSTR query,
                                                   LONG flags, IWbemContext* ctx,
                                                   IWbemObjectSink* responseHandler) = 0;
  virtual HRESULT STDMETHODCALLTYPE ExecNotificationQuery(const BSTR queryLanguage,
                                                          const BSTR query, LONG flags,
                                                          IWbemContext* ctx,
                                                          IEnumWbemClassObject** enumerator) = 0;
  virtual HRESULT STDMETHODCALLTYPE
  ExecNotificationQueryAsync(const BSTR queryLanguage, const BSTR query, LONG flags,
                             IWbemContext* ctx, IWbemObjectSink* responseHandler) = 0;
  virtual HRESULT STDMETHODCALLTYPE ExecMethod(const BSTR objectPath, const BSTR methodName,
                                               LONG flags, IWbemContext* ctx,
                                               IWbemClassObject* inParams,
                                               IWbemClassObject** outParams,
                                               IWbemCallResult** callResult) = 0;
  virtual HRESULT STDMETHODCALLTYPE ExecMethodAsync(const BSTR objectPath, const BSTR methodName,
                                                    LONG flags, IWbemContext* ctx,
                                                    IWbemClassObject* inParams,
                                                    IWbemObjectSink* responseHandler) = 0;

 protected:
  ~IWbemServices() = default;
};

struct IWbemProviderInitSink : IUnknown {
  virtual HRESULT STDMETHODCALLTYPE SetStatus(LONG status, LONG flags) = 0;

 protected:
  ~IWbemProviderInitSink() = default;
};

struct IWbemProviderInit : IUnknown {
  virtual HRESULT STDMETHODCALLTYPE Initialize(LPWSTR user, LONG flags, LPWSTR namespaceName,
                                               LPWSTR locale, IWbemServices* services,
                                               IWbemContext* context,
                                               IWbemProviderInitSink* initSink) = 0;

 protected:
  ~IWbemProviderInit() = default;
};
