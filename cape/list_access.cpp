#include "cape/list_access.h"

#include <cstring>

namespace {

template <class Element> bool takeElements(const VARIANT &value, VARTYPE type, const Element *&elements,
                                           std::int32_t &count, WideString &message)
{
    if (ListElements(value, type, elements, count))
        return true;
    elements = nullptr;
    count = 0;
    VariantArray list; // an empty value, or words for what it is instead
    list.Attach(value, 0);
    return list.Validate(type, message);
}

} // namespace

bool TakeDoubles(const VARIANT &value, const double *&data, std::int32_t &count, WideString &message)
{
    return takeElements(value, VT_R8, data, count, message);
}

bool TakeTexts(const VARIANT &value, const BSTR *&texts, std::int32_t &count, WideString &message)
{
    return takeElements(value, VT_BSTR, texts, count, message);
}

HRESULT GiveDoubles(const double *values, std::int32_t count, VARIANT *target)
{
    SAFEARRAY *array = SafeArrayCreateVector(VT_R8, 0, static_cast<ULONG>(count));
    VariantInit(target);
    if (!array)
        return E_OUTOFMEMORY;
    if (count > 0)
        std::memcpy(array->pvData, values, static_cast<std::size_t>(count) * sizeof(double));
    target->parray = array;
    target->vt = VT_ARRAY | VT_R8;
    return S_OK;
}
