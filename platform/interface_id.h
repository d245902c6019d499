// The identifier of a COM interface, found from its C++ type: `InterfaceId<IUnknown>`.
// A header that declares an interface specializes InterfaceIdOf beside it.
#pragma once

#include "platform/platform.h"

template <class Interface> struct InterfaceIdOf;

template <class Interface> inline constexpr const GUID &InterfaceId = InterfaceIdOf<Interface>::value;

#define DECLARE_INTERFACE_ID(Interface, ...)                                                                           \
    template <> struct InterfaceIdOf<Interface> {                                                                      \
        static constexpr GUID value = __VA_ARGS__;                                                                     \
    }

DECLARE_INTERFACE_ID(IUnknown, {0x00000000, 0x0000, 0x0000, {0xC0, 0, 0, 0, 0, 0, 0, 0x46}});
DECLARE_INTERFACE_ID(IClassFactory, {0x00000001, 0x0000, 0x0000, {0xC0, 0, 0, 0, 0, 0, 0, 0x46}});
DECLARE_INTERFACE_ID(IDispatch, {0x00020400, 0x0000, 0x0000, {0xC0, 0, 0, 0, 0, 0, 0, 0x46}});
DECLARE_INTERFACE_ID(IPersistStreamInit,
                     {0x7FD52380, 0x4E07, 0x101B, {0xAE, 0x2D, 0x08, 0x00, 0x2B, 0x2E, 0xC7, 0x13}});
