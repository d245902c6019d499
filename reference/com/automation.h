// Automation values with an owner, and lists as they come in arguments.
#pragma once

#include "platform/platform.h"

#include <functional>
#include <iterator>
#include <span>
#include <string_view>

namespace reference {

// A BSTR of its own.
class Text {
public:
    Text() = default;
    explicit Text(LPCWSTR text) : string(SysAllocString(text)) {}
    explicit Text(std::string_view ascii);
    Text(const Text &) = delete;
    Text &operator=(const Text &) = delete;
    ~Text() { SysFreeString(string); }

    BSTR get() const { return string; }
    BSTR *out() { return &string; } // for a call that fills it; must be empty
    BSTR detach();

private:
    BSTR string = nullptr;
};

// A VARIANT of its own.
class Value {
public:
    Value() { VariantInit(&variant); }
    Value(const Value &) = delete;
    Value &operator=(const Value &) = delete;
    ~Value() { VariantClear(&variant); }

    const VARIANT &get() const { return variant; }
    VARIANT *out() { return &variant; } // for a call that fills it; must be empty

    // New zero-based arrays in place of what is held; null when there is no memory. The elements
    // belong to the array and start as zero, null and empty.
    double *makeNumbers(int count);
    LONG *makeIntegers(int count);
    BSTR *makeTexts(int count);
    VARIANT *makeVariants(int count);

    // A new value in place of what is held.
    void setText(std::string_view ascii);
    void setNumber(double number);
    bool setNumbers(const double *values, int count); // false when there is no memory

    // A new array with one text, which `text` gives, for each row of a table. False when there is no
    // memory.
    template <class Table, class Function> bool setTexts(const Table &table, Function text)
    {
        BSTR *element = makeTexts(static_cast<int>(std::size(table)));
        if (!element)
            return false;
        for (const auto &row : table)
            if (!(*element++ = Text(std::string_view(std::invoke(text, row))).detach()))
                return false;
        return true;
    }

    // Moves the value to an argument that is filled for the first time, or (replace) to one that
    // may hold something, which is freed.
    HRESULT give(VARIANT *result);
    HRESULT replace(VARIANT *argument);

private:
    template <class Element> Element *makeArray(VARTYPE type, int count);

    VARIANT variant;
};

// The elements of a one-dimensional array in an argument, for as long as the view lives.
template <class Element, VARTYPE type> class ArrayView {
public:
    ArrayView() = default;
    ArrayView(const ArrayView &) = delete;
    ArrayView &operator=(const ArrayView &) = delete;
    ~ArrayView()
    {
        if (array)
            SafeArrayUnaccessData(array);
    }

    // False when the value is no one-dimensional array of these elements. To be called once.
    bool open(const VARIANT &value)
    {
        if (value.vt != (VT_ARRAY | type) || !value.parray || SafeArrayGetDim(value.parray) != 1)
            return false;
        LONG first = 0;
        LONG last = -1;
        void *data = nullptr;
        if (FAILED(SafeArrayGetLBound(value.parray, 1, &first)) || FAILED(SafeArrayGetUBound(value.parray, 1, &last)) ||
            FAILED(SafeArrayAccessData(value.parray, &data)))
            return false;
        array = value.parray;
        elements = {static_cast<const Element *>(data), static_cast<std::size_t>(last - first + 1)};
        return true;
    }
    int size() const { return static_cast<int>(elements.size()); }
    const Element &operator[](int index) const { return elements[static_cast<std::size_t>(index)]; }
    const Element *begin() const { return elements.data(); }
    const Element *end() const { return elements.data() + elements.size(); }

private:
    SAFEARRAY *array = nullptr;
    std::span<const Element> elements;
};
using TextView = ArrayView<BSTR, VT_BSTR>;
using NumberView = ArrayView<double, VT_R8>;

// Whether a text is the ASCII word, without regard to case; a null text is the empty word.
bool sameWord(const OLECHAR *text, std::size_t length, std::string_view word);
bool sameWord(BSTR text, std::string_view word);

// ASCII text as the platform has it.
WideString wide(std::string_view ascii);

// The text for a message; a null one is empty.
WideString quoted(BSTR text);

} // namespace reference
