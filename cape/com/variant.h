// Owner of one VARIANT.
#pragma once

#include "platform/platform.h"

class Variant {
public:
    Variant() { VariantInit(&variant); }
    Variant(const Variant &) = delete;
    Variant &operator=(const Variant &) = delete;
    ~Variant() { VariantClear(&variant); }

    const VARIANT &get() const { return variant; }
    VARIANT *out() { return &variant; } // for a call that fills it; must be empty

    // The value, which is the caller's from now on.
    VARIANT release()
    {
        const VARIANT value = variant;
        VariantInit(&variant);
        return value;
    }

    // Moves the value to an argument that is filled for the first time, or (replace) to one that
    // may hold something, which is freed.
    HRESULT give(VARIANT *result)
    {
        *result = release();
        return S_OK;
    }
    HRESULT replace(VARIANT *argument)
    {
        VariantClear(argument);
        return give(argument);
    }

protected:
    VARIANT variant;
};
