#include "tests/unit/material/package_view.h"

#include "tests/support/failures.h"

namespace {

SAFEARRAY *createArray(VARTYPE elementType, std::size_t count, LONG lowerBound)
{
    SAFEARRAYBOUND bound;
    bound.cElements = static_cast<ULONG>(count);
    bound.lLbound = lowerBound;
    return SafeArrayCreate(elementType, 1, &bound);
}

template <class Element, class Values> void fillArray(VARIANT &target, VARTYPE type, const Values &values, LONG lower)
{
    target.vt = static_cast<VARTYPE>(VT_ARRAY | type);
    target.parray = createArray(type, values.size(), lower);
    LONG index = lower;
    for (Element value : values) {
        EXPECT_EQ(SafeArrayPutElement(target.parray, &index, &value), S_OK);
        ++index;
    }
}

// The number of elements of a result of the expected form, else -1.
LONG countOf(const VARIANT &result, VARTYPE type)
{
    EXPECT_EQ(result.vt, VT_ARRAY | type);
    if (result.vt != (VT_ARRAY | type))
        return -1;
    EXPECT_EQ(SafeArrayGetDim(result.parray), 1u);
    VARTYPE elementType = VT_EMPTY;
    EXPECT_EQ(SafeArrayGetVartype(result.parray, &elementType), S_OK);
    EXPECT_EQ(elementType, type);
    LONG lower = -1;
    LONG upper = -1;
    EXPECT_EQ(SafeArrayGetLBound(result.parray, 1, &lower), S_OK);
    EXPECT_EQ(SafeArrayGetUBound(result.parray, 1, &upper), S_OK);
    EXPECT_EQ(lower, 0);
    return upper + 1;
}

template <class Element> std::vector<Element> elementsOf(const VARIANT &result, VARTYPE type)
{
    std::vector<Element> elements;
    const LONG count = countOf(result, type);
    for (LONG i = 0; i < count; ++i) {
        Element element{};
        EXPECT_EQ(SafeArrayGetElement(result.parray, &i, &element), S_OK);
        elements.push_back(element);
    }
    return elements;
}

} // namespace

DoubleArgument::DoubleArgument(std::initializer_list<double> numbers, LONG lowerBound)
{
    fillArray<double>(value, VT_R8, numbers, lowerBound);
}

Int32Argument::Int32Argument(std::initializer_list<LONG> numbers) { fillArray<LONG>(value, VT_I4, numbers, 0); }

TextArgument::TextArgument(std::initializer_list<LPCWSTR> texts, LONG lowerBound)
{
    value.vt = VT_ARRAY | VT_BSTR;
    value.parray = createArray(VT_BSTR, texts.size(), lowerBound);
    LONG index = lowerBound;
    for (LPCWSTR text : texts) {
        // A new array is full of nulls, and putting one may make it an empty string.
        if (text) {
            const Bstr element(text);
            EXPECT_EQ(SafeArrayPutElement(value.parray, &index, element.get()), S_OK);
        }
        ++index;
    }
}

TwoDimensionalArgument::TwoDimensionalArgument(VARTYPE elementType)
{
    SAFEARRAYBOUND bounds[2];
    for (SAFEARRAYBOUND &bound : bounds) {
        bound.cElements = 2;
        bound.lLbound = 0;
    }
    value.vt = static_cast<VARTYPE>(VT_ARRAY | elementType);
    value.parray = SafeArrayCreate(elementType, 2, bounds);
}

std::string Ascii(LPCWSTR text)
{
    std::string narrow;
    for (; text && *text; ++text)
        narrow += *text < 0x80 ? static_cast<char>(*text) : '?';
    return narrow;
}

std::string Ascii(const WideString &text) { return Ascii(text.c_str()); }

std::vector<double> DoublesIn(const OwnedVariant &result) { return elementsOf<double>(result.value, VT_R8); }

std::vector<LONG> Int32sIn(const OwnedVariant &result) { return elementsOf<LONG>(result.value, VT_I4); }

std::vector<std::string> TextsIn(const OwnedVariant &result)
{
    std::vector<std::string> texts;
    for (BSTR element : elementsOf<BSTR>(result.value, VT_BSTR)) {
        texts.push_back(Ascii(element));
        SysFreeString(element);
    }
    return texts;
}

std::string ErrorStateOf(IUnknown *object)
{
    ComPointer<ECapeRoot> root;
    EXPECT_EQ(root.queryFrom(object), S_OK);
    ComPointer<ECapeUser> user;
    EXPECT_EQ(user.queryFrom(object), S_OK);
    Bstr name;
    EXPECT_EQ(root->get_name(name.out()), S_OK);
    Bstr description;
    EXPECT_EQ(user->get_description(description.out()), S_OK);
    Bstr interfaceName;
    EXPECT_EQ(user->get_interfaceName(interfaceName.out()), S_OK);
    Bstr scope;
    EXPECT_EQ(user->get_scope(scope.out()), S_OK);
    return Ascii(name.get()) + " | " + Ascii(description.get()) + " | " + Ascii(interfaceName.get()) + " | " +
           Ascii(scope.get());
}

std::string PackageView::refusal(HRESULT hr) const
{
    if (hr == S_OK)
        return {};
    if (hr == ECapeUnknownHR)
        return errorState();
    return support::CodeText(hr);
}

namespace {

PackageView::Answer answerOf(const OwnedVariant &results, std::string refusal)
{
    if (refusal.empty())
        return {{}, DoublesIn(results)};
    EXPECT_TRUE(results.isEmpty());
    return {std::move(refusal), {}};
}

} // namespace

PackageView::Answer PackageView::overall(LPCWSTR property, LPCWSTR basis) const
{
    OwnedVariant results;
    const HRESULT hr = material->GetOverallProp(Bstr(property).get(), Bstr(basis).get(), results.out());
    return answerOf(results, refusal(hr));
}

PackageView::Answer PackageView::phase(LPCWSTR property, LPCWSTR label, LPCWSTR basis) const
{
    OwnedVariant results;
    const HRESULT hr =
        material->GetSinglePhaseProp(Bstr(property).get(), Bstr(label).get(), Bstr(basis).get(), results.out());
    return answerOf(results, refusal(hr));
}

PackageView::Answer PackageView::twoPhase(LPCWSTR property, const OwnedVariant &labels, LPCWSTR basis) const
{
    OwnedVariant results;
    const HRESULT hr = material->GetTwoPhaseProp(Bstr(property).get(), labels.value, Bstr(basis).get(), results.out());
    return answerOf(results, refusal(hr));
}

std::string PackageView::setOverall(LPCWSTR property, LPCWSTR basis, const OwnedVariant &values) const
{
    return refusal(material->SetOverallProp(Bstr(property).get(), Bstr(basis).get(), values.value));
}

std::string PackageView::setPhase(LPCWSTR property, LPCWSTR label, LPCWSTR basis, const OwnedVariant &values) const
{
    return refusal(
        material->SetSinglePhaseProp(Bstr(property).get(), Bstr(label).get(), Bstr(basis).get(), values.value));
}

std::string PackageView::setTwoPhase(LPCWSTR property, const OwnedVariant &labels, LPCWSTR basis,
                                     const OwnedVariant &values) const
{
    return refusal(material->SetTwoPhaseProp(Bstr(property).get(), labels.value, Bstr(basis).get(), values.value));
}

std::string PackageView::setPresentPhases(const OwnedVariant &labels) const
{
    VARIANT status;
    VariantInit(&status);
    return refusal(material->SetPresentPhases(labels.value, status));
}
