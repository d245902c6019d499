#include "material/recent_writes.h"

#include <new>

namespace {

// A null text is an empty one. `remembered` holds no null characters, so the text goes on as long
// as it agrees; four characters at a time, because this is most of what a repeated write costs.
inline bool isText(const WideString &remembered, LPCWSTR text)
{
    if (!text)
        return remembered.empty();
    const LPCWSTR expected = remembered.c_str();
    const std::size_t length = remembered.size() + 1; // with the terminator
    std::size_t i = 0;
    for (; i + 4 <= length; i += 4)
        if (expected[i] != text[i] || expected[i + 1] != text[i + 1] || expected[i + 2] != text[i + 2] ||
            expected[i + 3] != text[i + 3])
            return false;
    for (; i < length; ++i)
        if (expected[i] != text[i])
            return false;
    return true;
}

inline bool isWrite(const RecentWrites::Write &write, LPCWSTR property, LPCWSTR phaseLabel, LPCWSTR basisOrSecondLabel)
{
    return isText(write.property, property) && isText(write.phaseLabel, phaseLabel) &&
           isText(write.basisOrSecondLabel, basisOrSecondLabel);
}

} // namespace

const RecentWrites::Write *RecentWrites::find(LPCWSTR property, LPCWSTR phaseLabel, LPCWSTR basisOrSecondLabel)
{
    for (std::size_t tried = 0; tried < writes.size(); ++tried) {
        if (expected >= writes.size())
            expected = 0;
        const Write &write = writes[expected++];
        if (isWrite(write, property, phaseLabel, basisOrSecondLabel))
            return &write;
    }
    return nullptr;
}

void RecentWrites::remember(const WriteText &text, const WriteMeaning &meaning) noexcept
{
    if (writes.size() >= most)
        return;
    try {
        writes.push_back({meaning, text.property, text.phaseLabel, text.basisOrSecondLabel});
    } catch (const std::bad_alloc &) {
    }
}
