// Owner of one BSTR, and its text as a string.
#pragma once

#include "platform/platform.h"

#include <algorithm>
#include <string_view>
#include <utility>

class Bstr {
public:
    Bstr() = default;
    explicit Bstr(LPCWSTR source) : text(SysAllocString(source)) {} // null for a null source
    explicit Bstr(const WideString &source) : text(SysAllocString(source.c_str())) {}
    explicit Bstr(std::string_view ascii) : text(SysAllocStringLen(nullptr, static_cast<UINT>(ascii.size())))
    {
        if (text)
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
    void assign(LPCWSTR source) { take(SysAllocString(source)); }
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
