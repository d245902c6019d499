// The operating system, COM and automation as the rest of the system sees them: the Windows
// names. On Windows they are the system's own headers; elsewhere native/ supplies the same
// names, just as much of each as the system and its packages use.
#pragma once

#ifdef _WIN32
#ifndef NOMINMAX
#define NOMINMAX
#endif
#include <windows.h>
//
#include <ocidl.h>
#include <ole2.h>
#include <oleauto.h>
//
#include <cstdarg>
using MessageInserts = va_list; // what FormatMessageW takes a pointer to
#else
#include "platform/native/automation.h"
#include "platform/native/com.h"
#include "platform/native/modules.h"
#include "platform/native/registry.h"
#include "platform/native/text.h"
#include "platform/native/types.h"
#endif

#include <string>

// 16-bit text as COM and MATLAB have it.
using WideString = std::basic_string<WCHAR>;

#include "platform/interface_id.h"
