#include "gateway/call/marshalling.h"

#include "gateway/state/global_lists.h"

#include <algorithm>
#include <new>
#include <utility>

namespace {

constexpr WCHAR blank = 0x20;

const mxArray *stringArray(const mxArray *array)
{
    if (mxIsCell(array)) {
        if (mxGetNumberOfElements(array) != 1)
            return nullptr;
        array = mxGetCell_730(array, 0);
    }
    return array && mxIsChar(array) ? array : nullptr;
}

void appendNamesOf(const mxArray *charArray)
{
    AppendNames(mxGetChars(charArray), static_cast<std::ptrdiff_t>(mxGetNumberOfElements(charArray)));
}

} // namespace

WCHAR *GetStringArg(const mxArray *array, bool &outOfMemory)
{
    outOfMemory = false;
    const mxArray *source = stringArray(array);
    if (!source)
        return nullptr;
    const std::size_t length = mxGetNumberOfElements(source);
    WCHAR *text = new (std::nothrow) WCHAR[length + 1];
    if (!text) {
        outOfMemory = true;
        return nullptr;
    }
    std::copy_n(mxGetChars(source), length, text);
    text[length] = 0;
    return text;
}

void FreeStringArg(WCHAR *text) { delete[] text; }

Verdict StringArg::read(const mxArray *array, const char *notString)
{
    free();
    bool outOfMemory = false;
    text = GetStringArg(array, outOfMemory);
    if (outOfMemory)
        return Verdict::refuse("Out of memory");
    return text ? Verdict::done() : Verdict::refuse(notString);
}

void StringArg::free() { FreeStringArg(std::exchange(text, nullptr)); }

bool ParseNameList(const mxArray *array)
{
    NameList.clear();
    if (mxIsCell(array)) {
        const std::size_t count = mxGetNumberOfElements(array);
        for (std::size_t i = 0; i < count; ++i) {
            const mxArray *element = mxGetCell_730(array, i);
            if (!element || !mxIsChar(element))
                return false;
            appendNamesOf(element);
        }
        return true;
    }
    if (!mxIsChar(array))
        return false;
    appendNamesOf(array);
    return true;
}

void AppendNames(const WCHAR *units, std::ptrdiff_t count)
{
    if (count < 1)
        return;
    const WCHAR *const end = units + count;
    for (;;) {
        units = std::find_if(units, end, [](WCHAR unit) { return unit != blank; });
        if (units == end)
            return;
        const WCHAR *const tokenEnd = std::find(units, end, blank);
        NameList.emplace_back(units, tokenEnd);
        units = tokenEnd;
    }
}

mxArray *CreateRowString(const WideString &text)
{
    const mwSize dimensions[] = {1, text.size()};
    mxArray *row = mxCreateCharArray_730(2, dimensions);
    if (!text.empty())
        std::copy(text.begin(), text.end(), mxGetChars(row));
    return row;
}

void PutStringCell(const std::vector<WideString> &list, mxArray **slot)
{
    const mwSize dimensions[] = {list.size(), list.empty() ? mwSize{0} : mwSize{1}};
    *slot = mxCreateCellArray_730(2, dimensions);
    for (std::size_t i = 0; i < list.size(); ++i)
        mxSetCell_730(*slot, i, CreateRowString(list[i]));
}

void PutRowString(const WideString &text, mxArray **slot) { *slot = CreateRowString(text); }

double ScalarOf(const mxArray *array)
{
    return mxIsCell(array) || mxGetNumberOfElements(array) == 0 ? 0 : mxGetScalar(array);
}
