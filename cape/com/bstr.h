// Owner of one BSTR, and its text as a string. Where there is no memory for a copy of a text std::bad_alloc is thrown:
// a null BSTR would be an empty text.
#pragma once

#include "platform/platform.h"

#include <algorithm>
#include <new>
#include <string_view>
#include <utility>

// A new BSTR of the text; null for a null text.
inline BSTR CopyText(LPCWSTR source)
{
    const BSTR text = SysAllocString(source);
    if (source && !text)
        throw std::bad_alloc();
    return text;
}

class Bstr {
public:
    Bstr() = default;
    explicit Bstr(LPCWSTR source) : text(CopyText(source)) {} // null for a null source
    explicit Bstr(const WideString &source) : text(CopyText(source.c_str())) {}
    explicit Bstr(std::string_view ascii) : text(SysAllocStringLen(nullptr, static_cast<UINT>(ascii.size())))
    {
        if (!text)
            throw std::bad_alloc();
        std::copy(ascii.begin(), ascii.end(), text);
    }
    Bstr(const Bstr &) = delete;
    Bstr &operator=(const Bstr &) = delete;
    Bstr(Bstr &&other) noexcept : text(std::exchange(other.text, nullptr)) {}
    Bstr &operator=(Bstr &&other) noexcept
    {
        take(std::exchange(other.text, nullptr));
        return *this;
    }
    ~Bstr() { SysFreeString(text); }

    BSTR get() const { return text; }
    BSTR detach() { return std::exchange(text, nullptr); } // the caller frees it

    // Frees the old text and takes a copy of the new one; null empties.
    void assign(LPCWSTR source) { take(CopyText(source)); }
    void take(BSTR owned) { SysFreeString(std::exchange(text, owned)); }

    // For the out-parameters of COM: frees what is held and gives the address of the null.
    BSTR *out()
    {
        take(nullptr);
        return &text;
    }

private:
    BSTR text = nullptr;
};

// A null BSTR is an empty text.
inline WideString TextOf(BSTR text) { return text ? WideString(text) : WideString(); }
