// The basic Windows types and result codes under their Windows names.
#pragma once

#include <cstddef>
#include <cstdint>

using BYTE = std::uint8_t;
using WORD = std::uint16_t;
using SHORT = std::int16_t;
using USHORT = std::uint16_t;
using INT = int;
using UINT = unsigned int;
using LONG = std::int32_t;
using ULONG = std::uint32_t;
using DWORD = std::uint32_t;
using LONGLONG = std::int64_t;
using ULONGLONG = std::uint64_t;
using BOOL = int;
using FLOAT = float;
using DOUBLE = double;
using LPVOID = void *;
using LPCVOID = const void *;
using LPBYTE = BYTE *;
using LPDWORD = DWORD *;
using DWORD_PTR = std::uintptr_t;

using CHAR = char;
using LPSTR = char *;
using LPCSTR = const char *;
using WCHAR = char16_t;
using LPWSTR = WCHAR *;
using LPCWSTR = const WCHAR *;
using OLECHAR = WCHAR;
using LPOLESTR = OLECHAR *;
using LPCOLESTR = const OLECHAR *;
#define OLESTR(text) u##text

using HRESULT = LONG;
using SCODE = LONG;
using LSTATUS = LONG;
using LCID = DWORD;
using DISPID = LONG;
using REGSAM = DWORD;

using HKEY = struct HKEY__ *;
using PHKEY = HKEY *;
using HINSTANCE = struct HINSTANCE__ *;
using HMODULE = HINSTANCE;
using HANDLE = void *;
using HWND = struct HWND__ *;
using FARPROC = std::intptr_t (*)();

#define TRUE 1
#define FALSE 0
#define WINAPI
#define STDMETHODCALLTYPE
#define STDAPICALLTYPE
#define MAX_PATH 260

struct GUID {
    std::uint32_t Data1;
    std::uint16_t Data2;
    std::uint16_t Data3;
    std::uint8_t Data4[8];
};
using IID = GUID;
using CLSID = GUID;
using REFGUID = const GUID &;
using REFIID = const IID &;
using REFCLSID = const CLSID &;

constexpr bool operator==(const GUID &a, const GUID &b)
{
    if (a.Data1 != b.Data1 || a.Data2 != b.Data2 || a.Data3 != b.Data3)
        return false;
    for (int i = 0; i < 8; ++i)
        if (a.Data4[i] != b.Data4[i])
            return false;
    return true;
}

union ULARGE_INTEGER {
    ULONGLONG QuadPart;
};

constexpr bool SUCCEEDED(HRESULT hr) { return hr >= 0; }
constexpr bool FAILED(HRESULT hr) { return hr < 0; }

constexpr HRESULT S_OK = 0;
constexpr HRESULT S_FALSE = 1;
constexpr HRESULT E_NOTIMPL = static_cast<HRESULT>(0x80004001u);
constexpr HRESULT E_NOINTERFACE = static_cast<HRESULT>(0x80004002u);
constexpr HRESULT E_POINTER = static_cast<HRESULT>(0x80004003u);
constexpr HRESULT E_ABORT = static_cast<HRESULT>(0x80004004u);
constexpr HRESULT E_FAIL = static_cast<HRESULT>(0x80004005u);
constexpr HRESULT E_UNEXPECTED = static_cast<HRESULT>(0x8000FFFFu);
constexpr HRESULT E_ACCESSDENIED = static_cast<HRESULT>(0x80070005u);
constexpr HRESULT E_HANDLE = static_cast<HRESULT>(0x80070006u);
constexpr HRESULT E_OUTOFMEMORY = static_cast<HRESULT>(0x8007000Eu);
constexpr HRESULT E_INVALIDARG = static_cast<HRESULT>(0x80070057u);
constexpr HRESULT CLASS_E_NOAGGREGATION = static_cast<HRESULT>(0x80040110u);
constexpr HRESULT CLASS_E_CLASSNOTAVAILABLE = static_cast<HRESULT>(0x80040111u);
constexpr HRESULT REGDB_E_CLASSNOTREG = static_cast<HRESULT>(0x80040154u);
constexpr HRESULT CO_E_NOTINITIALIZED = static_cast<HRESULT>(0x800401F0u);
constexpr HRESULT CO_E_CLASSSTRING = static_cast<HRESULT>(0x800401F3u);
constexpr HRESULT CO_E_DLLNOTFOUND = static_cast<HRESULT>(0x800401F8u);
constexpr HRESULT CO_E_ERRORINDLL = static_cast<HRESULT>(0x800401F9u);
constexpr HRESULT RPC_E_CHANGED_MODE = static_cast<HRESULT>(0x80010106u);
constexpr HRESULT DISP_E_BADINDEX = static_cast<HRESULT>(0x8002000Bu);
constexpr HRESULT DISP_E_TYPEMISMATCH = static_cast<HRESULT>(0x80020005u);
constexpr HRESULT DISP_E_BADVARTYPE = static_cast<HRESULT>(0x80020008u);
constexpr HRESULT DISP_E_ARRAYISLOCKED = static_cast<HRESULT>(0x8002000Du);
constexpr HRESULT TYPE_E_LIBNOTREGISTERED = static_cast<HRESULT>(0x8002801Du);

constexpr LONG ERROR_SUCCESS = 0;
constexpr LONG ERROR_FILE_NOT_FOUND = 2;
constexpr LONG ERROR_ACCESS_DENIED = 5;
constexpr LONG ERROR_INVALID_HANDLE = 6;
constexpr LONG ERROR_NOT_ENOUGH_MEMORY = 8;
constexpr LONG ERROR_INVALID_PARAMETER = 87;
constexpr LONG ERROR_INSUFFICIENT_BUFFER = 122;
constexpr LONG ERROR_MOD_NOT_FOUND = 126;
constexpr LONG ERROR_PROC_NOT_FOUND = 127;
constexpr LONG ERROR_MORE_DATA = 234;
constexpr LONG ERROR_NO_MORE_ITEMS = 259;
constexpr LONG ERROR_MR_MID_NOT_FOUND = 317;
constexpr LONG ERROR_KEY_DELETED = 1018;
constexpr LONG ERROR_RESOURCE_DATA_NOT_FOUND = 1812;
constexpr LONG ERROR_RESOURCE_TYPE_NOT_FOUND = 1813;
