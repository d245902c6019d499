// The one value type for a list that crosses the COM border, in either direction: a VARIANT that
// is empty or holds a one-dimensional SAFEARRAY.
#pragma once

#include "platform/platform.h"

#include <cstdint>
#include <utility>

class VariantArray {
public:
    VARIANT value;
    std::int32_t owned = 1;      // non-zero: this object clears `value`
    std::int32_t lowerBound = 0; // filled by Validate and Create
    std::int32_t count = 0;      // elements; 0 until Validate or Create has run

    VariantArray();
    ~VariantArray();
    VariantArray(VariantArray &&other) noexcept : VariantArray() { *this = std::move(other); }
    VariantArray &operator=(VariantArray &&other) noexcept; // the other gets what this one held

    // Clears what is held and owned; the object is empty and has the flag afterwards.
    void Reset(std::int32_t ownerFlag);

    // Clears what is held and owned, then takes over the bits of `source` without copying the
    // array. Nothing can be read before Validate.
    void Attach(const VARIANT &source, std::int32_t ownerFlag);

    // A new owned array of `elementCount` elements with lower bound 0. Throws std::bad_alloc, and is empty, if it can't
    // be had: no list of another length than it says may reach a package.
    void Create(std::int32_t elementCount, VARTYPE elementType);

    // True when the value is empty or exactly a one-dimensional array of `elementType`; then
    // lowerBound and count are filled. False with the reason in `message` otherwise.
    bool Validate(VARTYPE elementType, WideString &message);

    // Elements by zero-based index, not checked: callers stay below count. Throw std::bad_alloc without memory.
    BSTR GetString(std::int32_t index) const;    // a new BSTR, the caller frees it
    WideString TextAt(std::int32_t index) const; // the same string as a value; empty for a null one
    double GetDouble(std::int32_t index) const;
    void GetVariant(std::int32_t index, VARIANT &element) const; // the caller clears it; VT_ERROR: it can't be copied

    // For arrays made by Create. The array keeps a copy of the string, for which std::bad_alloc may be thrown.
    void PutString(std::int32_t index, BSTR text);
    void PutDouble(std::int32_t index, double number);

    // Gives the array away to a caller's out-parameter, which alone owns it afterwards.
    void HandOver(VARIANT *target);
};
