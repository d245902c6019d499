// Functions found in loaded libraries, under their real type.
#pragma once

#include "platform/platform.h"

// The function that a library exports under a name or an ordinal; null if there is none.
// `findProcedure<int(int)>(module, "Twice")(21)`
template <class Function> Function *findProcedure(HMODULE module, LPCSTR name)
{
    using AnyFunction = void (*)(); // the one type that every other may be cast from and to
    return reinterpret_cast<Function *>(reinterpret_cast<AnyFunction>(GetProcAddress(module, name)));
}
