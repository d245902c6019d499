// Text calls: comparison, narrowing, system messages, formatting, message boxes.
#pragma once

#include "platform/native/types.h"

int lstrcmpW(LPCWSTR a, LPCWSTR b);
int lstrcmpiW(LPCWSTR a, LPCWSTR b); // without regard to case, accented letters included
int lstrlenW(LPCWSTR text);

constexpr UINT CP_ACP = 0;
constexpr UINT CP_THREAD_ACP = 3;
constexpr UINT CP_UTF8 = 65001;

// Every code page is UTF-8 here. A length of -1 takes the terminated text, terminator included.
// 0 with ERROR_INSUFFICIENT_BUFFER when the target is too small; a capacity of 0 asks for the size.
int WideCharToMultiByte(UINT codePage, DWORD flags, LPCWSTR text, int length, LPSTR target, int capacity,
                        LPCSTR defaultCharacter, BOOL *usedDefault);
int MultiByteToWideChar(UINT codePage, DWORD flags, LPCSTR text, int length, LPWSTR target, int capacity);

constexpr DWORD FORMAT_MESSAGE_IGNORE_INSERTS = 0x200;
constexpr DWORD FORMAT_MESSAGE_FROM_STRING = 0x400;
constexpr DWORD FORMAT_MESSAGE_FROM_SYSTEM = 0x1000;
constexpr DWORD FORMAT_MESSAGE_ARGUMENT_ARRAY = 0x2000;

// FROM_SYSTEM knows the common COM and Win32 results and answers 0 for others. FROM_STRING with
// ARGUMENT_ARRAY takes inserts of the form %1!08X! from an array of pointer-sized arguments.
using MessageInserts = char *;
DWORD FormatMessageW(DWORD flags, LPCVOID source, DWORD messageId, DWORD language, LPWSTR buffer, DWORD capacity,
                     MessageInserts *arguments);

// printf formatting of numbers into 16-bit text; formats are ASCII. Gives the length, or -1.
int swprintf(WCHAR *buffer, std::size_t capacity, const WCHAR *format, ...);

DWORD GetLastError();
void SetLastError(DWORD error);
DWORD GetTickCount();

BOOL SetEnvironmentVariableA(LPCSTR name, LPCSTR value);                      // a null value removes the variable
DWORD ExpandEnvironmentStringsA(LPCSTR source, LPSTR target, DWORD capacity); // %NAME% forms

constexpr UINT MB_ICONINFORMATION = 0x40;
constexpr int IDOK = 1;

// Shows a message with a title and waits for the user: on the terminal, if there is one.
int MessageBoxW(HWND owner, LPCWSTR text, LPCWSTR caption, UINT style);
