#include "fuzz/support/list_argument.h"

#include "cape/com/bstr.h"
#include "fuzz/input.h"

#include <algorithm>
#include <utility>

namespace fuzz {

namespace {

constexpr VARTYPE elementTypes[] = {VT_R8,  VT_BSTR, VT_VARIANT, VT_I4,      VT_I2, VT_R4,
                                    VT_UI1, VT_BOOL, VT_DATE,    VT_UNKNOWN, VT_I8};

constexpr VARTYPE plainTypes[] = {VT_EMPTY, VT_NULL, VT_R8, VT_I4, VT_BSTR, VT_BOOL, VT_UNKNOWN};

// A value that is no array, with nothing in it that is owned.
bool isArray(VARTYPE type) { return (type & VT_ARRAY) != 0; }

void fillNumbers(SAFEARRAY *array, const std::vector<double> &numbers)
{
    std::copy(numbers.begin(), numbers.end(), static_cast<double *>(array->pvData));
}

void fillTexts(SAFEARRAY *array, const std::vector<MaybeText> &texts)
{
    BSTR *elements = static_cast<BSTR *>(array->pvData);
    for (const MaybeText &text : texts)
        *elements++ = text ? SysAllocStringLen(text->c_str(), static_cast<UINT>(text->size())) : nullptr;
}

} // namespace

ListArgument::ListArgument(ListAccount contents) : account(std::move(contents)), value()
{
    value.vt = account.type;
    if (!isArray(account.type) || account.isNull)
        return;
    const bool isTexts = account.elementType == VT_BSTR;
    const std::size_t count = isTexts ? account.texts.size() : account.numbers.size();
    SAFEARRAYBOUND bounds[4] = {};
    for (SAFEARRAYBOUND &bound : bounds)
        bound = {2, account.lowerBound};
    bounds[0].cElements = static_cast<ULONG>(count);
    array = SafeArrayCreate(account.elementType, account.dimensions, bounds);
    if (array && account.dimensions == 1 && account.elementType == VT_R8)
        fillNumbers(array, account.numbers);
    if (array && account.dimensions == 1 && isTexts)
        fillTexts(array, account.texts);
    if (account.type & VT_BYREF)
        value.byref = &array;
    else
        value.parray = array;
}

ListArgument::~ListArgument() { SafeArrayDestroy(array); }

VARIANT ListArgument::detach()
{
    VARIANT given = value;
    if (given.vt & VT_BYREF) { // what it refers to stays here
        given = {};
        given.vt = VT_EMPTY;
        return given;
    }
    array = nullptr;
    return given;
}

LONG LowerBound(Input &input) { return input.chance(24) ? input.pick(lowerBounds) : 0; }

ListAccount FromAnyBound(Input &input, ListAccount account)
{
    account.lowerBound = LowerBound(input);
    return account;
}

void Spoil(Input &input, ListAccount &account)
{
    if (!input.chance(24))
        return;
    switch (input.below(8)) {
    case 0:
        account.type = input.pick(plainTypes);
        break;
    case 1:
        account.type = static_cast<VARTYPE>(account.type | VT_BYREF);
        break;
    case 2:
        account.elementType = input.pick(elementTypes); // and the VARIANT says so
        account.type = static_cast<VARTYPE>(VT_ARRAY | account.elementType);
        break;
    case 3:
        account.elementType = input.pick(elementTypes); // and the VARIANT says something else
        break;
    case 4:
        account.dimensions = 2 + input.below(2);
        break;
    case 5:
        account.isNull = true;
        break;
    case 6:
        account.type = static_cast<VARTYPE>(VT_ARRAY | input.pick(elementTypes));
        break;
    default:
        account.type = VT_EMPTY;
        break;
    }
}

ListAccount NumberList(std::vector<double> numbers)
{
    ListAccount account;
    account.type = VT_ARRAY | VT_R8;
    account.elementType = VT_R8;
    account.numbers = std::move(numbers);
    return account;
}

ListAccount TextList(const std::vector<WideString> &texts)
{
    ListAccount account;
    account.type = VT_ARRAY | VT_BSTR;
    account.elementType = VT_BSTR;
    account.texts.assign(texts.begin(), texts.end());
    return account;
}

ListAccount NumbersAccount(Input &input, const std::vector<std::size_t> &counts)
{
    ListAccount account = NumberList({});
    const unsigned choice = input.byte();
    const std::size_t count = choice < 240 ? counts[choice % counts.size()] : choice - 240;
    for (std::size_t i = 0; i < count; ++i)
        account.numbers.push_back(Number(input));
    Spoil(input, account);
    return account;
}

ListAccount LabelsAccount(Input &input, const std::vector<WideString> &known, std::size_t usualCount)
{
    ListAccount account = TextList({});
    const std::size_t count = input.chance(16) ? input.below(4) : usualCount;
    for (std::size_t i = 0; i < count; ++i)
        account.texts.push_back(LabelText(input, known));
    Spoil(input, account);
    return account;
}

std::vector<WideString> TextsOf(const VARIANT &list)
{
    std::vector<WideString> texts;
    if (list.vt == VT_EMPTY)
        return texts;
    FUZZ_CHECK(list.vt == (VT_ARRAY | VT_BSTR) && list.parray && list.parray->cDims == 1);
    const BSTR *elements = static_cast<const BSTR *>(list.parray->pvData);
    for (ULONG i = 0; i < list.parray->rgsabound[0].cElements; ++i)
        texts.push_back(TextOf(elements[i]));
    return texts;
}

ListAccount AnyAccount(Input &input)
{
    ListAccount account;
    account.elementType = input.pick(elementTypes);
    account.type = static_cast<VARTYPE>(VT_ARRAY | account.elementType);
    const std::size_t count = input.below(5);
    for (std::size_t i = 0; i < count; ++i) {
        account.numbers.push_back(Number(input));
        account.texts.push_back(PropertyText(input));
    }
    Spoil(input, account);
    return account;
}

} // namespace fuzz
