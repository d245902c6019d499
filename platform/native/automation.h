// Automation values: BSTR, VARIANT and SAFEARRAY with the ownership rules of the automation
// runtime. Element reads copy, element writes copy, clearing frees what the value owns.
#pragma once

#include "platform/native/types.h"

using BSTR = OLECHAR *;
using VARTYPE = WORD;
using VARIANT_BOOL = SHORT;
using DATE = double;

constexpr VARIANT_BOOL VARIANT_TRUE = -1;
constexpr VARIANT_BOOL VARIANT_FALSE = 0;

struct IUnknown;
struct IDispatch;

enum VARENUM : VARTYPE {
    VT_EMPTY = 0,
    VT_NULL = 1,
    VT_I2 = 2,
    VT_I4 = 3,
    VT_R4 = 4,
    VT_R8 = 5,
    VT_CY = 6,
    VT_DATE = 7,
    VT_BSTR = 8,
    VT_DISPATCH = 9,
    VT_ERROR = 10,
    VT_BOOL = 11,
    VT_VARIANT = 12,
    VT_UNKNOWN = 13,
    VT_I1 = 16,
    VT_UI1 = 17,
    VT_UI2 = 18,
    VT_UI4 = 19,
    VT_I8 = 20,
    VT_UI8 = 21,
    VT_INT = 22,
    VT_UINT = 23,
    VT_ARRAY = 0x2000,
    VT_BYREF = 0x4000,
};

struct SAFEARRAYBOUND {
    ULONG cElements;
    LONG lLbound;
};

// cDims bounds follow the header, the bound of the last dimension first.
struct SAFEARRAY {
    USHORT cDims;
    USHORT fFeatures;
    ULONG cbElements;
    ULONG cLocks;
    void *pvData;
    SAFEARRAYBOUND rgsabound[1];
};

constexpr USHORT FADF_HAVEIID = 0x0040;
constexpr USHORT FADF_HAVEVARTYPE = 0x0080;
constexpr USHORT FADF_BSTR = 0x0100;
constexpr USHORT FADF_UNKNOWN = 0x0200;
constexpr USHORT FADF_DISPATCH = 0x0400;
constexpr USHORT FADF_VARIANT = 0x0800;

struct VARIANT {
    VARTYPE vt;
    WORD wReserved1;
    WORD wReserved2;
    WORD wReserved3;
    union {
        LONGLONG llVal;
        ULONGLONG ullVal;
        LONG lVal;
        ULONG ulVal;
        INT intVal;
        UINT uintVal;
        BYTE bVal;
        SHORT iVal;
        USHORT uiVal;
        FLOAT fltVal;
        DOUBLE dblVal;
        VARIANT_BOOL boolVal;
        SCODE scode;
        DATE date;
        BSTR bstrVal;
        IUnknown *punkVal;
        IDispatch *pdispVal;
        SAFEARRAY *parray;
        VARIANT *pvarVal;
        void *byref;
    };
};
using VARIANTARG = VARIANT;

void VariantInit(VARIANT *value);
HRESULT VariantClear(VARIANT *value);
HRESULT VariantCopy(VARIANT *target, const VARIANT *source);

BSTR SysAllocString(const OLECHAR *text);
BSTR SysAllocStringLen(const OLECHAR *text, UINT length);
void SysFreeString(BSTR text);
UINT SysStringLen(BSTR text);
UINT SysStringByteLen(BSTR text);

SAFEARRAY *SafeArrayCreate(VARTYPE type, UINT dimensions, SAFEARRAYBOUND *bounds);
SAFEARRAY *SafeArrayCreateVector(VARTYPE type, LONG lowerBound, ULONG count);
HRESULT SafeArrayDestroy(SAFEARRAY *array);
HRESULT SafeArrayCopy(SAFEARRAY *array, SAFEARRAY **copy);
UINT SafeArrayGetDim(SAFEARRAY *array);
UINT SafeArrayGetElemsize(SAFEARRAY *array);
HRESULT SafeArrayGetVartype(SAFEARRAY *array, VARTYPE *type);
HRESULT SafeArrayGetLBound(SAFEARRAY *array, UINT dimension, LONG *bound);
HRESULT SafeArrayGetUBound(SAFEARRAY *array, UINT dimension, LONG *bound);
HRESULT SafeArrayGetElement(SAFEARRAY *array, LONG *indices, void *element);
HRESULT SafeArrayPutElement(SAFEARRAY *array, LONG *indices, void *element);
HRESULT SafeArrayAccessData(SAFEARRAY *array, void **data);
HRESULT SafeArrayUnaccessData(SAFEARRAY *array);
