// A material as a package has it: reached through its COM interfaces only, its refusals read from
// the error interfaces of the same object.
#pragma once

#include "cape/com/bstr.h"
#include "cape/com/cape_open.h"
#include "cape/com/com_pointer.h"
#include "platform/platform.h"

#include <gtest/gtest.h>

#include <initializer_list>
#include <string>
#include <vector>

// A VARIANT that clears itself.
class OwnedVariant {
public:
    OwnedVariant() { VariantInit(&value); }
    ~OwnedVariant() { VariantClear(&value); }
    OwnedVariant(const OwnedVariant &) = delete;
    OwnedVariant &operator=(const OwnedVariant &) = delete;
    VARIANT *out() { return &value; }
    bool isEmpty() const { return value.vt == VT_EMPTY; }

    VARIANT value;
};

// Arguments as a package makes them; a label may be null.
class DoubleArgument : public OwnedVariant {
public:
    DoubleArgument(std::initializer_list<double> numbers, LONG lowerBound = 0);
};
class TextArgument : public OwnedVariant {
public:
    TextArgument(std::initializer_list<LPCWSTR> texts, LONG lowerBound = 0);
};
class Int32Argument : public OwnedVariant {
public:
    Int32Argument(std::initializer_list<LONG> numbers);
};
// 2 times 2 elements, all of them zero or null.
class TwoDimensionalArgument : public OwnedVariant {
public:
    explicit TwoDimensionalArgument(VARTYPE elementType);
};

// 8-bit text for comparisons that can be read when they fail.
std::string Ascii(LPCWSTR text);
std::string Ascii(const WideString &text);

// The elements of a result, whose type, dimension and lower bound of 0 are tested.
std::vector<double> DoublesIn(const OwnedVariant &result);
std::vector<std::string> TextsIn(const OwnedVariant &result);
std::vector<LONG> Int32sIn(const OwnedVariant &result);

// "name | description | interface | scope" from ECapeRoot and ECapeUser of the object.
std::string ErrorStateOf(IUnknown *object);

class PackageView {
public:
    // Any interface of the object.
    explicit PackageView(IUnknown *object) { material.queryFrom(object); }

    ICapeThermoMaterial *operator->() const { return material.get(); }
    ICapeThermoMaterial *get() const { return material.get(); }
    std::string errorState() const { return ErrorStateOf(material.get()); }

    // The results of a getter or the error state of its refusal, whichever it was: "" and values, or
    // no values and the words.
    struct Answer {
        std::string refusal;
        std::vector<double> values;
    };
    Answer overall(LPCWSTR property, LPCWSTR basis) const;
    Answer phase(LPCWSTR property, LPCWSTR label, LPCWSTR basis) const;
    Answer twoPhase(LPCWSTR property, const OwnedVariant &labels, LPCWSTR basis) const;

    // "" or the error state of the refusal.
    std::string setOverall(LPCWSTR property, LPCWSTR basis, const OwnedVariant &values) const;
    std::string setPhase(LPCWSTR property, LPCWSTR label, LPCWSTR basis, const OwnedVariant &values) const;
    std::string setTwoPhase(LPCWSTR property, const OwnedVariant &labels, LPCWSTR basis,
                            const OwnedVariant &values) const;
    std::string setPresentPhases(const OwnedVariant &labels) const;

    // "" for a success, the error state for the result of a refusal, else the result itself.
    std::string refusal(HRESULT hr) const;

private:
    ComPointer<ICapeThermoMaterial> material;
};
