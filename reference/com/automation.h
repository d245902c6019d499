// Automation values as they are made, and lists as they come in arguments.
#pragma once

#include "cape/com/array_elements.h"
#include "cape/com/bstr.h"
#include "cape/com/variant.h"

#include <functional>
#include <iterator>
#include <span>
#include <string_view>

namespace reference {

// A VARIANT with functions to fill it.
class Value : public Variant {
public:
    // New zero-based arrays in place of the old value; null when out of memory. The elements belong to
    // the array and start as zero, null and empty.
    double *makeNumbers(int count);
    LONG *makeIntegers(int count);
    BSTR *makeTexts(int count);
    VARIANT *makeVariants(int count);

    // A new value in place of the old one; std::bad_alloc without memory for a text.
    void setText(std::string_view ascii);
    void setNumber(double number);
    bool setNumbers(const double *values, int count); // false when out of memory

    // A new array of the texts that `text` gives for each row of a table. False when out of memory for the array, and
    // std::bad_alloc for a text.
    template <class Table, class Function> bool setTexts(const Table &table, Function text)
    {
        BSTR *element = makeTexts(static_cast<int>(std::size(table)));
        if (!element)
            return false;
        for (const auto &row : table)
            *element++ = Bstr(std::string_view(std::invoke(text, row))).detach();
        return true;
    }

private:
    template <class Element> Element *makeArray(VARTYPE type, int count);
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

    // False when the value is not a one-dimensional array of these elements. Call it once only.
    bool open(const VARIANT &value)
    {
        void *data = nullptr;
        if (value.vt != (VT_ARRAY | type) || SafeArrayGetDim(value.parray) != 1 ||
            !HoldsElements(value.parray, type, sizeof(Element)) || FAILED(SafeArrayAccessData(value.parray, &data)))
            return false;
        array = value.parray;
        elements = {static_cast<const Element *>(data), value.parray->rgsabound[0].cElements};
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

// Whether a text equals an ASCII word, without regard to case; a null text equals the empty word.
bool sameWord(const OLECHAR *text, std::size_t length, std::string_view word);
bool sameWord(BSTR text, std::string_view word);

// ASCII text as wide text.
WideString wide(std::string_view ascii);

// The text in quotes, for a message; a null one is empty.
WideString quoted(BSTR text);

// A result code as it is usually written: 0x80004005.
WideString hexadecimal(HRESULT result);

// Gives a copy of the text to a caller; refuses a null pointer.
HRESULT giveText(std::basic_string_view<OLECHAR> text, BSTR *result);

} // namespace reference
