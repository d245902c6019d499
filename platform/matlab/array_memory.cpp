// Making, owning and destroying arrays.
#include "platform/matlab/array.h"

#include <algorithm>
#include <cstdint>
#include <cstdio>
#include <cstdlib>
#include <cstring>
#include <new>
#include <utility>

namespace {

using Raise = void (*)(const char *message);

mxArray *firstArray = nullptr;
std::size_t liveArrays = 0;
std::size_t creationsUntilFailure = 0;
std::vector<Raise> calls; // one for each call under way
constexpr const char *outOfMemory = "Out of memory.";

[[noreturn]] void misuse(const char *what)
{
    std::fprintf(stderr, "MATLAB stand-in: %s\n", what);
    std::abort();
}

std::size_t elementSize(mxClassID classId)
{
    switch (classId) {
    case mxCELL_CLASS:
        return sizeof(mxArray *);
    case mxLOGICAL_CLASS:
        return sizeof(bool);
    case mxCHAR_CLASS:
        return sizeof(WCHAR);
    case mxDOUBLE_CLASS:
        return sizeof(double);
    case mxSINGLE_CLASS:
        return sizeof(float);
    case mxINT8_CLASS:
    case mxUINT8_CLASS:
        return 1;
    case mxINT16_CLASS:
    case mxUINT16_CLASS:
        return 2;
    case mxINT32_CLASS:
    case mxUINT32_CLASS:
        return 4;
    case mxINT64_CLASS:
    case mxUINT64_CLASS:
        return 8;
    case mxUNKNOWN_CLASS:
    case mxSTRUCT_CLASS:
    case mxFUNCTION_CLASS:
        return 1; // a MEX function that looks into none of them is told class and size alone
    default:
        misuse("an array of a class that it doesn't have");
    }
}

// Fewer than two dimensions become two, and ones behind the second are dropped.
std::vector<mwSize> normalized(mwSize dimensionCount, const mwSize *dimensions)
{
    std::vector<mwSize> result(std::max<mwSize>(dimensionCount, 2), dimensionCount == 0 ? 0 : 1);
    std::copy_n(dimensions, dimensionCount, result.begin());
    while (result.size() > 2 && result.back() == 1)
        result.pop_back();
    return result;
}

// False when the number of bytes can't be addressed.
bool countElements(const std::vector<mwSize> &dimensions, std::size_t size, std::size_t &count)
{
    count = 1;
    for (const mwSize dimension : dimensions)
        if (dimension == 0) {
            count = 0;
            return true;
        }
    for (const mwSize dimension : dimensions) {
        if (dimension > PTRDIFF_MAX / size / count)
            return false;
        count *= dimension;
    }
    return true;
}

void freeBlocks(mxArray *array)
{
    if (!array->borrowed)
        std::free(array->real);
    std::free(array->imaginary);
    delete array;
}

// Over `borrowed` elements unless that is null.
mxArray *allocate(std::vector<mwSize> dimensions, mxClassID classId, mxComplexity complexity,
                  const void *borrowed = nullptr)
{
    const std::size_t size = elementSize(classId);
    std::size_t count = 0;
    if (!countElements(dimensions, size, count))
        return nullptr;
    mxArray *array = new (std::nothrow) mxArray;
    if (!array)
        return nullptr;
    array->classId = classId;
    array->dimensions = std::move(dimensions);
    array->elementCount = count;
    if (count > 0 && borrowed) {
        array->real = const_cast<void *>(borrowed); // it is the elements of an argument, which are not written to
        array->borrowed = true;
    } else if (count > 0) {
        array->real = std::calloc(count, size);
        if (complexity == mxCOMPLEX)
            array->imaginary = std::calloc(count, size);
        if (!array->real || (complexity == mxCOMPLEX && !array->imaginary)) {
            freeBlocks(array);
            return nullptr;
        }
    }
    array->callDepth = static_cast<unsigned>(calls.size());
    array->next = firstArray;
    if (firstArray)
        firstArray->previous = array;
    firstArray = array;
    ++liveArrays;
    return array;
}

mxArray **elements(const mxArray *cell) { return static_cast<mxArray **>(cell->real); }

mxArray *create(mwSize dimensionCount, const mwSize *dimensions, mxClassID classId, mxComplexity complexity)
{
    const bool refused = creationsUntilFailure > 0 && --creationsUntilFailure == 0;
    mxArray *array = refused ? nullptr : allocate(normalized(dimensionCount, dimensions), classId, complexity);
    if (!array && !calls.empty())
        calls.back()(outOfMemory);
    return array;
}

mxArray *copyOf(const mxArray *source)
{
    mxArray *copy = allocate(source->dimensions, source->classId, source->imaginary ? mxCOMPLEX : mxREAL);
    if (!copy)
        misuse(outOfMemory);
    if (source->elementCount == 0)
        return copy;
    const std::size_t bytes = source->elementCount * elementSize(source->classId);
    if (source->classId != mxCELL_CLASS) {
        std::memcpy(copy->real, source->real, bytes);
        if (source->imaginary)
            std::memcpy(copy->imaginary, source->imaginary, bytes);
        return copy;
    }
    for (std::size_t i = 0; i < source->elementCount; ++i)
        if (elements(source)[i])
            mxSetCell_730(copy, i, copyOf(elements(source)[i]));
    return copy;
}

} // namespace

extern "C" {

mxArray *mxCreateDoubleMatrix_730(mwSize rows, mwSize columns, mxComplexity complexity)
{
    const mwSize dimensions[] = {rows, columns};
    return create(2, dimensions, mxDOUBLE_CLASS, complexity);
}

mxArray *mxCreateNumericArray_730(mwSize dimensionCount, const mwSize *dimensions, mxClassID classId,
                                  mxComplexity complexity)
{
    return create(dimensionCount, dimensions, classId, complexity);
}

mxArray *mxCreateCharArray_730(mwSize dimensionCount, const mwSize *dimensions)
{
    return create(dimensionCount, dimensions, mxCHAR_CLASS, mxREAL);
}

mxArray *mxCreateCellArray_730(mwSize dimensionCount, const mwSize *dimensions)
{
    return create(dimensionCount, dimensions, mxCELL_CLASS, mxREAL);
}

mxArray *mxCreateLogicalScalar(bool value)
{
    const mwSize dimensions[] = {1, 1};
    mxArray *array = create(2, dimensions, mxLOGICAL_CLASS, mxREAL);
    if (array)
        *static_cast<bool *>(array->real) = value;
    return array;
}

void mxSetCell_730(mxArray *array, mwIndex index, mxArray *value)
{
    if (array->classId != mxCELL_CLASS || index >= array->elementCount)
        misuse("mxSetCell outside of a cell array");
    if (value && value->inCell)
        misuse("mxSetCell of an array that already stands in a cell");
    if (mxArray *former = elements(array)[index]) { // as in MATLAB it is not destroyed
        former->inCell = false;
        former->callDepth = array->callDepth;
    }
    elements(array)[index] = value;
    if (value)
        value->inCell = true;
}

void mxDestroyArray(mxArray *array)
{
    if (!array)
        return;
    if (array->classId == mxCELL_CLASS)
        for (std::size_t i = 0; i < array->elementCount; ++i)
            mxDestroyArray(elements(array)[i]);
    (array->previous ? array->previous->next : firstArray) = array->next;
    if (array->next)
        array->next->previous = array->previous;
    --liveArrays;
    freeBlocks(array);
}

mxArray *mxStandInArrayOver(mwSize dimensionCount, const mwSize *dimensions, mxClassID classId, const void *elements)
{
    if (classId == mxCELL_CLASS)
        misuse("a cell array over elements of the host");
    return allocate(normalized(dimensionCount, dimensions), classId, mxREAL, elements);
}

mxArray *mxDuplicateArray(const mxArray *array) { return copyOf(array); }

std::size_t mxStandInLiveArrays() { return liveArrays; }

void mxStandInFailCreation(std::size_t n) { creationsUntilFailure = n; }

void mxStandInEnterCall(void (*raise)(const char *message)) { calls.push_back(raise); }

void mxStandInLeaveCall(mxArray *kept[], std::size_t count)
{
    const unsigned depth = static_cast<unsigned>(calls.size());
    calls.pop_back();
    for (std::size_t i = 0; i < count; ++i) {
        if (!kept[i])
            continue;
        if (kept[i]->inCell || kept[i]->callDepth != depth)
            kept[i] = copyOf(kept[i]);
        else
            kept[i]->callDepth = depth - 1;
    }
    for (mxArray *array = firstArray; array;) {
        if (array->callDepth == depth && !array->inCell) {
            mxDestroyArray(array);
            array = firstArray; // its elements went with it, wherever they stood in the list
        } else {
            array = array->next;
        }
    }
}
}
