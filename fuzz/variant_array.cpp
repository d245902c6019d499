// Lists as packages hand them over: VARIANTs with arrays of any type, dimension, bounds and elements, and with
// descriptors that do not fit what they describe. What is read from them has to be what was put in, or refused.
#include "cape/variant_array.h"
#include "cape/list_access.h"
#include "fuzz/automation.h"

#include <bit>
#include <cstring>
#include <vector>

namespace {

constexpr VARTYPE elementTypes[] = {VT_R8,    VT_BSTR, VT_VARIANT, VT_I2,  VT_I4,  VT_UNKNOWN,
                                    VT_R4,    VT_BOOL, VT_DATE,    VT_I8,  VT_UI1, VT_CY,
                                    VT_ERROR, VT_INT,  VT_UINT,    VT_UI8, VT_I1,  VT_DISPATCH};
constexpr VARTYPE listTypes[] = {VT_R8, VT_BSTR, VT_VARIANT, VT_I2, VT_I4, VT_EMPTY, VT_BOOL};

struct Rule {
    VARTYPE type;
    LPCWSTR name;
    ULONG size;
    bool owns;
};

constexpr Rule rules[] = {
    {VT_EMPTY, OLESTR("EMPTY"), 0, false},
    {VT_I2, OLESTR("short"), 2, false},
    {VT_I4, OLESTR("long"), 4, false},
    {VT_R8, OLESTR("double precision"), 8, false},
    {VT_BSTR, OLESTR("string"), sizeof(BSTR), true},
    {VT_VARIANT, OLESTR("VARIANT"), sizeof(VARIANT), true},
};
constexpr Rule unknownRule{VT_ERROR, OLESTR("<unknown>"), 0, false};

const Rule &ruleOf(VARTYPE type)
{
    for (const Rule &rule : rules)
        if (rule.type == type)
            return rule;
    return unknownRule;
}

// One array with what was put into it. It gives itself back as it was made, however its descriptor was changed
// meanwhile.
class ForeignArray {
public:
    explicit ForeignArray(FuzzedDataProvider &input)
    {
        type = input.PickValueInArray(elementTypes);
        const auto dimensions = input.ConsumeIntegralInRange<UINT>(1, 3);
        SAFEARRAYBOUND bounds[3];
        for (UINT i = 0; i < dimensions; ++i) {
            bounds[i].cElements = input.ConsumeIntegralInRange<ULONG>(0, 5);
            bounds[i].lLbound = AnyLowerBound(input);
        }
        array = SafeArrayCreate(type, dimensions, bounds);
        FUZZ_CHECK(array != nullptr);
        asMade = *array;
        count = array->rgsabound[0].cElements;
        if (dimensions == 1)
            fill(input);
        change(input);
    }
    ForeignArray(const ForeignArray &) = delete;
    ForeignArray &operator=(const ForeignArray &) = delete;
    ~ForeignArray()
    {
        // Bounds and all: the descriptor of one dimension is a SAFEARRAY, and of more only its head changes.
        std::memcpy(array, &asMade, sizeof asMade);
        FUZZ_CHECK(SafeArrayDestroy(array) == S_OK);
    }

    // Whether a reader of `wanted` may have it, by the rules that every reader follows.
    bool holds(VARTYPE wanted) const
    {
        VARTYPE held = VT_EMPTY;
        if (array->fFeatures & FADF_HAVEVARTYPE)
            held = type;
        else if (array->fFeatures & FADF_BSTR)
            held = VT_BSTR;
        else if (array->fFeatures & FADF_UNKNOWN)
            held = VT_UNKNOWN;
        else if (array->fFeatures & FADF_DISPATCH)
            held = VT_DISPATCH;
        else if (array->fFeatures & FADF_VARIANT)
            held = VT_VARIANT;
        const Rule &rule = ruleOf(wanted);
        if (held == VT_EMPTY ? rule.owns : held != wanted)
            return false;
        // The index behind the last element is a number, too.
        const auto end = static_cast<std::int64_t>(array->rgsabound[0].lLbound) + array->rgsabound[0].cElements;
        if (end > std::numeric_limits<LONG>::max())
            return false;
        const ULONG elements = array->rgsabound[0].cElements;
        return array->cbElements == rule.size && (array->pvData || elements == 0) && elements <= 0x7FFFFFFFu;
    }

    SAFEARRAY *array;
    VARTYPE type;
    ULONG count;
    std::vector<double> numbers;
    std::vector<WideString> texts;
    std::vector<VARTYPE> variantTypes;
    bool isChanged = false; // its descriptor

private:
    void fill(FuzzedDataProvider &input)
    {
        for (ULONG i = 0; i < count; ++i) {
            if (type == VT_R8) {
                numbers.push_back(AnyNumber(input));
                static_cast<double *>(array->pvData)[i] = numbers.back();
            } else if (type == VT_BSTR) {
                const bool isNull = input.ConsumeIntegralInRange(0, 7) == 0;
                texts.push_back(isNull ? WideString() : AnyText(input, 40));
                static_cast<BSTR *>(array->pvData)[i] = isNull ? nullptr : NewText(texts.back());
            } else if (type == VT_VARIANT) {
                fillVariant(input, static_cast<VARIANT *>(array->pvData)[i]);
            }
        }
    }

    void fillVariant(FuzzedDataProvider &input, VARIANT &element)
    {
        static constexpr VARTYPE types[] = {VT_EMPTY, VT_R8, VT_BSTR, VT_I4, VT_ARRAY | VT_R8, VT_BOOL, VT_UNKNOWN};
        element.vt = input.PickValueInArray(types);
        variantTypes.push_back(element.vt);
        texts.emplace_back();
        numbers.push_back(0);
        if (element.vt == VT_R8) {
            element.dblVal = numbers.back() = AnyNumber(input);
        } else if (element.vt == VT_BSTR) {
            texts.back() = AnyText(input, 40);
            element.bstrVal = NewText(texts.back());
        } else if (element.vt == (VT_ARRAY | VT_R8)) {
            const LONG lower = AnyLowerBound(input);
            element.parray = SafeArrayCreateVector(VT_R8, lower, input.ConsumeIntegralInRange<ULONG>(0, 3));
        }
    }

    // Makes the descriptor say something else.
    void change(FuzzedDataProvider &input)
    {
        isChanged = true;
        switch (input.ConsumeIntegralInRange(0, 9)) {
        case 0:
            array->cbElements = input.ConsumeIntegralInRange<ULONG>(0, 24);
            break;
        case 1:
            array->pvData = nullptr;
            break;
        case 2: // as an array that was made by its descriptor alone
            array->fFeatures = static_cast<USHORT>(array->fFeatures & ~FADF_HAVEVARTYPE);
            break;
        case 3:
            array->fFeatures = 0;
            break;
        case 4: // more than there are: nobody may read them
            array->rgsabound[0].cElements = input.ConsumeIntegralInRange<ULONG>(0x80000000u, 0xFFFFFFFFu);
            break;
        case 5:
            array->cDims = 0;
            break;
        default:
            isChanged = false;
            break;
        }
    }

    SAFEARRAY asMade;
};

bool sameBits(double a, double b) { return std::bit_cast<std::uint64_t>(a) == std::bit_cast<std::uint64_t>(b); }

WideString textOf(BSTR text) { return text ? WideString(text, SysStringLen(text)) : WideString(); }

// The elements of a list that was accepted.
void checkElements(const VariantArray &list, VARTYPE wanted, const ForeignArray &foreign)
{
    for (std::int32_t i = 0; i < list.count; ++i) {
        const auto n = static_cast<std::size_t>(i);
        if (wanted == VT_R8) {
            const double expected = n < foreign.numbers.size() ? foreign.numbers[n] : 0;
            FUZZ_CHECK(sameBits(list.GetDouble(i), expected) || foreign.type != VT_R8);
        } else if (wanted == VT_BSTR) {
            const WideString &expected = foreign.texts[n];
            BSTR text = list.GetString(i);
            FUZZ_CHECK(textOf(text) == expected);
            SysFreeString(text);
            FUZZ_CHECK(list.TextAt(i) == expected);
        } else if (wanted == VT_VARIANT) {
            VARIANT element;
            list.GetVariant(i, element);
            FUZZ_CHECK(element.vt == foreign.variantTypes[n]);
            FUZZ_CHECK(element.vt != VT_R8 || sameBits(element.dblVal, foreign.numbers[n]));
            FUZZ_CHECK(element.vt != VT_BSTR || textOf(element.bstrVal) == foreign.texts[n]);
            VariantClear(&element);
        }
    }
}

template <class Element, class Take>
void checkTaken(Take take, const VARIANT &value, bool isAccepted, const VariantArray &list, const WideString &words)
{
    const Element *elements = nullptr;
    std::int32_t count = -1;
    WideString message;
    FUZZ_CHECK(take(value, elements, count, message) == isAccepted);
    FUZZ_CHECK(message == words);
    FUZZ_CHECK(!isAccepted || count == list.count);
    FUZZ_CHECK(!isAccepted || count == 0 || elements == value.parray->pvData);
}

void readForeignList(FuzzedDataProvider &input)
{
    const ForeignArray foreign(input);
    VARIANT value;
    VariantInit(&value);
    const int kind = input.ConsumeIntegralInRange(0, 9);
    if (kind != 0) {
        value.vt = static_cast<VARTYPE>(VT_ARRAY | foreign.type);
        value.parray = foreign.array;
    }
    if (kind == 1) // not what the array says of itself
        value.vt = static_cast<VARTYPE>(VT_ARRAY | input.PickValueInArray(elementTypes));
    else if (kind == 2) // any value at all
        value.vt = input.ConsumeIntegralInRange<VARTYPE>(1, 0xFFFF);
    else if (kind == 3)
        value.parray = nullptr;
    const VARTYPE wanted = input.ConsumeBool() ? foreign.type : input.PickValueInArray(listTypes);

    WideString expected;
    const bool isArrayOfIt = value.vt == (VT_ARRAY | wanted);
    if (isArrayOfIt && (!value.parray || value.parray->cDims != 1))
        expected = OLESTR("unexpected dimension; 1-dimensional array expected");
    else if (value.vt != VT_EMPTY && (!isArrayOfIt || !foreign.holds(wanted)))
        expected = WideString(OLESTR("Expected an array of type ")) + ruleOf(wanted).name;

    VariantArray list;
    list.Attach(value, 0);
    WideString message;
    const bool isAccepted = list.Validate(wanted, message);
    FUZZ_CHECK(message == expected);
    FUZZ_CHECK(isAccepted == expected.empty());
    if (isAccepted && value.vt != VT_EMPTY) {
        FUZZ_CHECK(list.count == static_cast<std::int32_t>(foreign.count));
        FUZZ_CHECK(list.lowerBound == foreign.array->rgsabound[0].lLbound);
        if (!foreign.isChanged)
            checkElements(list, wanted, foreign);
    } else if (isAccepted) {
        FUZZ_CHECK(list.count == 0);
    }
    if (wanted == VT_R8)
        checkTaken<double>(TakeDoubles, value, isAccepted, list, expected);
    if (wanted == VT_BSTR)
        checkTaken<BSTR>(TakeTexts, value, isAccepted, list, expected);
}

void makeNumbers(FuzzedDataProvider &input, VariantArray &list)
{
    const auto count = input.ConsumeIntegralInRange<std::int32_t>(0, 20);
    list.Create(count, VT_R8);
    FUZZ_CHECK(list.count == count && list.lowerBound == 0);
    std::vector<double> numbers(static_cast<std::size_t>(count), 0.0);
    for (std::int32_t puts = input.ConsumeIntegralInRange(0, 30); puts > 0 && count > 0; --puts) {
        const auto at = input.ConsumeIntegralInRange<std::int32_t>(0, count - 1);
        numbers[static_cast<std::size_t>(at)] = AnyNumber(input);
        list.PutDouble(at, numbers[static_cast<std::size_t>(at)]);
    }
    for (std::int32_t i = 0; i < count; ++i)
        FUZZ_CHECK(sameBits(list.GetDouble(i), numbers[static_cast<std::size_t>(i)]));
}

void makeTexts(FuzzedDataProvider &input, VariantArray &list)
{
    const auto count = input.ConsumeIntegralInRange<std::int32_t>(0, 20);
    list.Create(count, VT_BSTR);
    std::vector<WideString> texts(static_cast<std::size_t>(count));
    std::vector<bool> isNull(texts.size(), true);
    for (std::int32_t puts = input.ConsumeIntegralInRange(0, 30); puts > 0 && count > 0; --puts) {
        const auto at = input.ConsumeIntegralInRange<std::int32_t>(0, count - 1);
        const auto n = static_cast<std::size_t>(at);
        isNull[n] = input.ConsumeBool();
        texts[n] = isNull[n] ? WideString() : AnyText(input, 40);
        BSTR text = isNull[n] ? nullptr : NewText(texts[n]);
        list.PutString(at, text);
        SysFreeString(text);
    }
    for (std::int32_t i = 0; i < count; ++i) {
        const auto n = static_cast<std::size_t>(i);
        FUZZ_CHECK(list.TextAt(i) == texts[n]);
        FUZZ_CHECK((static_cast<BSTR *>(list.value.parray->pvData)[i] == nullptr) == isNull[n]);
    }
}

// A list of our own, on its way to a package.
void makeList(FuzzedDataProvider &input)
{
    VariantArray list;
    for (int rounds = input.ConsumeIntegralInRange(1, 4); rounds > 0; --rounds) {
        const bool areNumbers = input.ConsumeBool();
        if (areNumbers)
            makeNumbers(input, list);
        else
            makeTexts(input, list);
        WideString message;
        FUZZ_CHECK(list.Validate(areNumbers ? VT_R8 : VT_BSTR, message));
        FUZZ_CHECK(!list.Validate(areNumbers ? VT_BSTR : VT_R8, message));
        const int fate = input.ConsumeIntegralInRange(0, 2);
        if (fate == 0) {
            VARIANT target;
            VariantInit(&target);
            list.HandOver(&target);
            FUZZ_CHECK(VariantClear(&target) == S_OK);
            list.Reset(1);
        } else if (fate == 1) {
            list.Reset(input.ConsumeBool() ? 1 : 0);
            FUZZ_CHECK(list.value.vt == VT_EMPTY && list.count == 0);
        }
    }
}

} // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t *data, std::size_t size)
{
    FuzzedDataProvider input(data, size);
    if (input.ConsumeIntegralInRange(0, 3) == 0)
        makeList(input);
    else
        readForeignList(input);
    return 0;
}
