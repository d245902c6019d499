// The keys that property names are stored and looked up under, and their hash. The map hashes and
// compares through one virtual operation, so that an owned key and a borrowed one can meet in one
// lookup that allocates nothing.
#pragma once

#include "platform/platform.h"

#include <cstddef>
#include <cstdint>

class WSTRMapKey {
public:
    explicit WSTRMapKey(WideString ownedText);
    virtual ~WSTRMapKey() = default;
    virtual LPCWSTR GetKeyText() const; // terminated

protected:
    WSTRMapKey() = default;
    WSTRMapKey(const WSTRMapKey &) = default;
    WSTRMapKey(WSTRMapKey &&) = default;
    WSTRMapKey &operator=(const WSTRMapKey &) = default;
    WSTRMapKey &operator=(WSTRMapKey &&) = default;

    WideString text;
};

// Lower-cases its text; the key kind that maps store.
class WSTRMapKeyString : public WSTRMapKey {
public:
    explicit WSTRMapKeyString(WideString name);

protected:
    WSTRMapKeyString() = default;
};

// The part of an already lower-cased name in front of the first dot.
class WSTRMapKeyStringNoDeriv : public WSTRMapKeyString {
public:
    explicit WSTRMapKeyStringNoDeriv(LPCWSTR lowerCasedName);
};

// Borrows its text: for lookups, never stored.
class WSTRMapKeyPtr : public WSTRMapKey {
public:
    explicit WSTRMapKeyPtr(LPCWSTR borrowedText) : borrowed(borrowedText) {}
    LPCWSTR GetKeyText() const override { return borrowed; }

private:
    LPCWSTR borrowed;
};

// "A" to "Z" become "a" to "z"; every other character stays.
constexpr WCHAR LowerCharacter(WCHAR c)
{
    return c >= OLESTR('A') && c <= OLESTR('Z') ? static_cast<WCHAR>(c - OLESTR('A') + OLESTR('a')) : c;
}

// A lower-cased copy of a name, without allocation for names of up to 127 characters.
class LowerName {
public:
    explicit LowerName(LPCWSTR name); // a null name makes an empty text
    ~LowerName();
    LowerName(const LowerName &) = delete;
    LowerName &operator=(const LowerName &) = delete;
    LPCWSTR text() const { return start; }

    // Drops the first dot and what follows it: what stays names the base property.
    void cutSuffix();

private:
    static constexpr std::size_t inlineCapacity = 128;
    WCHAR buffer[inlineCapacity];
    WCHAR *start = buffer;
};

// h = (h times 0x1000193) xor c over the 16-bit characters in 64-bit arithmetic, from 0x811C9DC5:
// multiply first, with the 32-bit seed and prime; not the published 32-bit FNV hash.
std::uint64_t HashName(LPCWSTR keyText);

struct WSTRMapKeyHash {
    using is_transparent = void;
    std::size_t operator()(const WSTRMapKey &key) const { return HashName(key.GetKeyText()); }
};

// Equal texts, character for character.
struct WSTRMapKeyEqual {
    using is_transparent = void;
    bool operator()(const WSTRMapKey &a, const WSTRMapKey &b) const;
};
