// SAFEARRAYs. One block holds the element type, the descriptor with its bounds, and the elements:
// arrays are made and freed in the inner loops of calculations.
#include "platform/native/allocation.h"
#include "platform/native/automation.h"
#include "platform/native/com.h"
#include "platform/native/element_type.h"
#include "platform/native/ownership.h"

#include <cstring>
#include <utility>

namespace {

constexpr std::size_t alignment = 16;
constexpr std::size_t prefixSize = alignment; // the element type stands in front of the descriptor
constexpr USHORT maximumDimensions = 64;      // far above what anyone passes
constexpr std::uint64_t maximumBytes = 0x7FFFFFFF;

char *blockOf(SAFEARRAY *array) { return reinterpret_cast<char *>(array) - prefixSize; }

// Where the system has it, too.
char *typePlaceOf(SAFEARRAY *array) { return reinterpret_cast<char *>(array) - sizeof(std::uint32_t); }

// As the features tell it; VT_EMPTY for an array that does not know.
VARTYPE typeOf(SAFEARRAY *array)
{
    if (array->fFeatures & FADF_HAVEVARTYPE) {
        std::uint32_t type = VT_EMPTY;
        std::memcpy(&type, typePlaceOf(array), sizeof type);
        return static_cast<VARTYPE>(type);
    }
    constexpr std::pair<USHORT, VARTYPE> ownedElements[] = {
        {FADF_BSTR, VT_BSTR}, {FADF_UNKNOWN, VT_UNKNOWN}, {FADF_DISPATCH, VT_DISPATCH}, {FADF_VARIANT, VT_VARIANT}};
    for (const auto &[feature, type] : ownedElements)
        if (array->fFeatures & feature)
            return type;
    return VT_EMPTY;
}

std::uint64_t countOf(const SAFEARRAY *array)
{
    std::uint64_t count = 1;
    for (USHORT i = 0; i < array->cDims; ++i)
        count *= array->rgsabound[i].cElements;
    return count;
}

void *elementAt(SAFEARRAY *array, std::uint64_t position)
{
    return static_cast<char *>(array->pvData) + position * array->cbElements;
}

USHORT featuresOf(VARTYPE type)
{
    switch (type) {
    case VT_BSTR:
        return FADF_BSTR | FADF_HAVEVARTYPE;
    case VT_UNKNOWN:
        return FADF_UNKNOWN | FADF_HAVEIID;
    case VT_DISPATCH:
        return FADF_DISPATCH | FADF_HAVEIID;
    case VT_VARIANT:
        return FADF_VARIANT | FADF_HAVEVARTYPE;
    default:
        return FADF_HAVEVARTYPE;
    }
}

// Size of the elements in bytes, or nothing usable (above maximumBytes) if they are too many.
std::uint64_t dataSize(ULONG elementSize, const SAFEARRAYBOUND *bounds, UINT dimensions)
{
    std::uint64_t bytes = elementSize;
    bool tooMany = false;
    for (UINT i = 0; i < dimensions; ++i) {
        if (bounds[i].cElements == 0)
            return 0;
        bytes *= bounds[i].cElements;
        if (bytes > maximumBytes) {
            tooMany = true;
            bytes = 1;
        }
    }
    return tooMany ? maximumBytes + 1 : bytes;
}

// `bounds` in the order of the descriptor: last dimension first.
SAFEARRAY *makeArray(VARTYPE type, UINT dimensions, const SAFEARRAYBOUND *bounds)
{
    const ULONG size = native::elementSize(type);
    if (size == 0 || dimensions == 0 || dimensions > maximumDimensions)
        return nullptr;
    const std::uint64_t bytes = dataSize(size, bounds, dimensions);
    if (bytes > maximumBytes)
        return nullptr;
    std::size_t descriptorSize = sizeof(SAFEARRAY) + (dimensions - 1) * sizeof(SAFEARRAYBOUND);
    descriptorSize = (descriptorSize + alignment - 1) / alignment * alignment;

    char *block = static_cast<char *>(native::allocate(prefixSize + descriptorSize + bytes));
    if (!block)
        return nullptr;
    SAFEARRAY *array = reinterpret_cast<SAFEARRAY *>(block + prefixSize);
    const std::uint32_t heldType = type;
    std::memcpy(typePlaceOf(array), &heldType, sizeof heldType);
    array->cDims = static_cast<USHORT>(dimensions);
    array->fFeatures = featuresOf(type);
    array->cbElements = size;
    array->cLocks = 0;
    array->pvData = block + prefixSize + descriptorSize;
    std::memcpy(array->rgsabound, bounds, dimensions * sizeof(SAFEARRAYBOUND));
    std::memset(array->pvData, 0, bytes);
    return array;
}

// The element that `indices` (first dimension first) name; the first dimension varies fastest.
HRESULT findElement(SAFEARRAY *array, const LONG *indices, void *&element)
{
    std::uint64_t position = 0;
    for (USHORT i = 0; i < array->cDims; ++i) {
        const SAFEARRAYBOUND &bound = array->rgsabound[i];
        const std::int64_t offset =
            static_cast<std::int64_t>(indices[array->cDims - 1 - i]) - static_cast<std::int64_t>(bound.lLbound);
        if (offset < 0 || offset >= bound.cElements)
            return DISP_E_BADINDEX;
        position = position * bound.cElements + static_cast<std::uint64_t>(offset);
    }
    element = elementAt(array, position);
    return S_OK;
}

HRESULT findBound(SAFEARRAY *array, UINT dimension, const void *result, SAFEARRAYBOUND &bound)
{
    if (!array || !result)
        return E_INVALIDARG;
    if (dimension == 0 || dimension > array->cDims)
        return DISP_E_BADINDEX;
    bound = array->rgsabound[array->cDims - dimension];
    return S_OK;
}

void freeElements(SAFEARRAY *array)
{
    const VARTYPE type = typeOf(array);
    if (!native::ownsSomething(type))
        return;
    const std::uint64_t count = countOf(array);
    for (std::uint64_t i = 0; i < count; ++i)
        native::freeElement(type, elementAt(array, i));
}

} // namespace

SAFEARRAY *SafeArrayCreate(VARTYPE type, UINT dimensions, SAFEARRAYBOUND *bounds)
{
    if (!bounds || dimensions > maximumDimensions)
        return nullptr;
    SAFEARRAYBOUND reversed[maximumDimensions];
    for (UINT i = 0; i < dimensions; ++i)
        reversed[i] = bounds[dimensions - 1 - i];
    return makeArray(type, dimensions, reversed);
}

SAFEARRAY *SafeArrayCreateVector(VARTYPE type, LONG lowerBound, ULONG count)
{
    const SAFEARRAYBOUND bound{count, lowerBound};
    return makeArray(type, 1, &bound);
}

HRESULT SafeArrayDestroy(SAFEARRAY *array)
{
    if (!array)
        return S_OK;
    if (array->cLocks > 0)
        return DISP_E_ARRAYISLOCKED;
    freeElements(array);
    std::free(blockOf(array));
    return S_OK;
}

HRESULT SafeArrayCopy(SAFEARRAY *array, SAFEARRAY **copy)
{
    if (!copy)
        return E_INVALIDARG;
    *copy = nullptr;
    if (!array)
        return S_OK;
    const VARTYPE type = typeOf(array);
    SAFEARRAY *made = makeArray(type, array->cDims, array->rgsabound);
    if (!made)
        return E_OUTOFMEMORY;
    const std::uint64_t count = countOf(array);
    if (!native::ownsSomething(type)) {
        std::memcpy(made->pvData, array->pvData, count * array->cbElements);
    } else {
        for (std::uint64_t i = 0; i < count; ++i) {
            const HRESULT result = native::copyElement(type, elementAt(made, i), elementAt(array, i));
            if (FAILED(result)) {
                SafeArrayDestroy(made);
                return result;
            }
        }
    }
    *copy = made;
    return S_OK;
}

UINT SafeArrayGetDim(SAFEARRAY *array) { return array ? array->cDims : 0; }

UINT SafeArrayGetElemsize(SAFEARRAY *array) { return array ? array->cbElements : 0; }

HRESULT SafeArrayGetVartype(SAFEARRAY *array, VARTYPE *type)
{
    if (!array || !type)
        return E_INVALIDARG;
    *type = typeOf(array);
    return *type == VT_EMPTY ? E_INVALIDARG : S_OK;
}

HRESULT SafeArrayGetLBound(SAFEARRAY *array, UINT dimension, LONG *bound)
{
    SAFEARRAYBOUND found;
    const HRESULT result = findBound(array, dimension, bound, found);
    if (SUCCEEDED(result))
        *bound = found.lLbound;
    return result;
}

HRESULT SafeArrayGetUBound(SAFEARRAY *array, UINT dimension, LONG *bound)
{
    SAFEARRAYBOUND found;
    const HRESULT result = findBound(array, dimension, bound, found);
    if (SUCCEEDED(result)) // in unsigned arithmetic, where no elements at the lowest bound wrap
        *bound = static_cast<LONG>(static_cast<ULONG>(found.lLbound) + found.cElements - 1);
    return result;
}

HRESULT SafeArrayGetElement(SAFEARRAY *array, LONG *indices, void *element)
{
    if (!array || !indices || !element)
        return E_INVALIDARG;
    void *source = nullptr;
    const HRESULT result = findElement(array, indices, source);
    if (FAILED(result))
        return result;
    const VARTYPE type = typeOf(array);
    if (type != VT_EMPTY)
        return native::copyElement(type, element, source);
    std::memcpy(element, source, array->cbElements);
    return S_OK;
}

HRESULT SafeArrayPutElement(SAFEARRAY *array, LONG *indices, void *element)
{
    if (!array || !indices)
        return E_INVALIDARG;
    const VARTYPE type = typeOf(array);
    // Of strings and interfaces the pointer itself is passed, of all else the address.
    const bool passedAsPointer = type == VT_BSTR || type == VT_UNKNOWN || type == VT_DISPATCH;
    if (!passedAsPointer && !element)
        return E_INVALIDARG;
    void *target = nullptr;
    HRESULT result = findElement(array, indices, target);
    if (FAILED(result))
        return result;
    if (type == VT_VARIANT)
        return VariantCopy(static_cast<VARIANT *>(target), static_cast<const VARIANT *>(element));
    if (!passedAsPointer) {
        std::memcpy(target, element, array->cbElements);
        return S_OK;
    }
    void *copy = nullptr;
    result = native::copyElement(type, &copy, &element);
    if (FAILED(result))
        return result;
    native::freeElement(type, target); // after the copy: they may be the same
    std::memcpy(target, &copy, sizeof copy);
    return S_OK;
}

HRESULT SafeArrayAccessData(SAFEARRAY *array, void **data)
{
    if (!array || !data)
        return E_INVALIDARG;
    ++array->cLocks;
    *data = array->pvData;
    return S_OK;
}

HRESULT SafeArrayUnaccessData(SAFEARRAY *array)
{
    if (!array)
        return E_INVALIDARG;
    if (array->cLocks == 0)
        return E_UNEXPECTED;
    --array->cLocks;
    return S_OK;
}
