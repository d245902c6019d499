#include "platform/native/automation.h"
#include "platform/native/com.h"
#include "platform/native/element_type.h"
#include "platform/native/ownership.h"

namespace {

constexpr VARTYPE modifiers = VT_ARRAY | VT_BYREF;

// Types that a VARIANT may have: simple ones, arrays of and references to anything with a size.
bool isVariantType(VARTYPE type)
{
    const VARTYPE base = static_cast<VARTYPE>(type & ~modifiers);
    if (base == VT_EMPTY || base == VT_NULL)
        return base == type;
    return native::elementSize(base) != 0;
}

// Whether a copy is more than the bits. A VARIANT directly in a VARIANT means nothing, and is
// taken for bits.
bool ownsElement(VARTYPE type) { return type != VT_VARIANT && native::ownsSomething(type); }

} // namespace

void VariantInit(VARIANT *value) { value->vt = VT_EMPTY; }

HRESULT VariantClear(VARIANT *value)
{
    if (!isVariantType(value->vt))
        return DISP_E_BADVARTYPE;
    if (!(value->vt & VT_BYREF)) {
        if (value->vt & VT_ARRAY) {
            const HRESULT result = SafeArrayDestroy(value->parray);
            if (FAILED(result))
                return result;
        } else if (ownsElement(value->vt)) {
            native::freeElement(value->vt, &value->llVal);
        }
    }
    value->vt = VT_EMPTY;
    return S_OK;
}

HRESULT VariantCopy(VARIANT *target, const VARIANT *source)
{
    if (target == source)
        return S_OK;
    if (!isVariantType(source->vt))
        return DISP_E_BADVARTYPE;
    HRESULT result = VariantClear(target);
    if (FAILED(result))
        return result;
    VARIANT copy = *source;
    if (!(source->vt & VT_BYREF)) {
        if (source->vt & VT_ARRAY)
            result = SafeArrayCopy(source->parray, &copy.parray);
        else if (ownsElement(source->vt))
            result = native::copyElement(source->vt, &copy.llVal, &source->llVal);
    }
    if (SUCCEEDED(result))
        *target = copy;
    return result;
}
