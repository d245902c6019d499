// Automation values as a test writes them and reads them.
#pragma once

#include "platform/platform.h"
#include "tests/support/text.h"

#include <cstdint>
#include <initializer_list>
#include <vector>

namespace support {

// Owner of one VARIANT of any type; copies copy what it holds.
class Variant {
public:
    Variant() { VariantInit(&value); } // VT_EMPTY
    Variant(const Variant &other);
    Variant(Variant &&other) noexcept;
    Variant &operator=(Variant other) noexcept;
    ~Variant() { VariantClear(&value); }

    // A copy into an out-parameter that holds nothing yet, and into one that may hold something.
    void giveTo(VARIANT *target) const;
    void replace(VARIANT *target) const;

    VARIANT value;
};

Variant RealVariant(double number);
Variant LongVariant(LONG number);
Variant TextVariant(AnyText text);
Variant InterfaceVariant(IDispatch *object); // holds a reference of its own

// One-dimensional arrays.
Variant TextArray(std::initializer_list<AnyText> texts, LONG lowerBound = 0);
Variant TextArray(const std::vector<WideString> &texts, LONG lowerBound = 0);
Variant NumberArray(const std::vector<double> &numbers, LONG lowerBound = 0);
Variant LongArray(const std::vector<LONG> &numbers, LONG lowerBound = 0);
Variant ArrayOfVariants(const std::vector<Variant> &elements, LONG lowerBound = 0);

// Arrays of any element type with nothing written to them: zeros, null texts, empty variants.
Variant BlankArray(VARTYPE type, ULONG count, LONG lowerBound = 0);
Variant TwoDimensionalArray(VARTYPE type, ULONG rows, ULONG columns);

// An array that says of its elements that they are of another type than they are.
Variant Mislabeled(Variant array, VARTYPE elementType);

// The array as a reference to a VARIANT's content, which lives as long as `array` and is no copy.
VARIANT ByReference(Variant &array);

// The elements of a one-dimensional array; the running test fails for anything else but VT_EMPTY,
// which has none. A null text reads as an empty one.
std::vector<WideString> TextsOf(const VARIANT &array);
std::vector<double> NumbersOf(const VARIANT &array);
std::vector<LONG> LongsOf(const VARIANT &array);

// Owner of one BSTR.
class OwnedBstr {
public:
    OwnedBstr() = default;
    OwnedBstr(const AnyText &text);
    OwnedBstr(const OwnedBstr &) = delete;
    OwnedBstr &operator=(const OwnedBstr &) = delete;
    ~OwnedBstr() { SysFreeString(text); }

    operator BSTR() const { return text; }
    BSTR *out() { return &text; } // for out-parameters, while it holds nothing
    WideString wide() const;      // empty for null

private:
    BSTR text = nullptr;
};

WideString TextOf(BSTR text); // with its length; empty for null

} // namespace support
