#include "fuzz/mex/arguments.h"

#include <algorithm>

namespace fuzz {

namespace {

mxArray *numericArray(Input &input)
{
    constexpr mxClassID classes[] = {mxINT32_CLASS, mxSINGLE_CLASS, mxLOGICAL_CLASS, mxINT8_CLASS,
                                     mxUINT8_CLASS, mxINT16_CLASS,  mxUINT16_CLASS,  mxUINT32_CLASS,
                                     mxINT64_CLASS, mxUINT64_CLASS, mxDOUBLE_CLASS};
    const mwSize dimensions[] = {input.below(4), input.below(4), 1 + input.below(2), 1 + input.below(2)};
    const mwSize count = 2 + input.below(3);
    const mxClassID classId = input.pick(classes);
    mxArray *array = mxCreateNumericArray_730(count, dimensions, classId, input.chance(32) ? mxCOMPLEX : mxREAL);
    if (void *data = mxGetData(array))
        *static_cast<std::uint8_t *>(data) = input.byte() & 1;
    return array;
}

mxArray *doubleArray(Input &input, mxComplexity complexity)
{
    const std::size_t rows = input.below(6);
    const std::size_t columns = input.below(6);
    mxArray *array = mxCreateDoubleMatrix_730(rows, columns, complexity);
    for (std::size_t i = 0; i < rows * columns; ++i)
        mxGetPr(array)[i] = Number(input);
    return array;
}

mxArray *cellArray(Input &input, int depth)
{
    const mwSize dimensions[] = {input.below(4), input.below(3)};
    mxArray *cell = mxCreateCellArray_730(2, dimensions);
    for (mwSize i = 0; i < dimensions[0] * dimensions[1]; ++i)
        if (!input.chance(32))
            mxSetCell_730(cell, i, AnyArray(input, depth + 1));
    return cell;
}

mxArray *charMatrix(Input &input)
{
    const mwSize dimensions[] = {input.below(3), input.below(12)};
    mxArray *array = mxCreateCharArray_730(2, dimensions);
    for (mwSize i = 0; i < dimensions[0] * dimensions[1]; ++i)
        mxGetChars(array)[i] = input.byte();
    return array;
}

} // namespace

Arguments::~Arguments()
{
    for (mxArray *array : arrays)
        mxDestroyArray(array);
}

void Arguments::replace(std::size_t index, mxArray *array)
{
    mxDestroyArray(arrays[index]);
    arrays[index] = array;
}

void Arguments::drop()
{
    mxDestroyArray(arrays.back());
    arrays.pop_back();
}

mxArray *NumberArray(double value) { return NumbersArray(1, 1, {value}); }

mxArray *NumbersArray(std::size_t rows, std::size_t columns, const std::vector<double> &columnByColumn)
{
    mxArray *array = mxCreateDoubleMatrix_730(rows, columns, mxREAL);
    std::copy(columnByColumn.begin(), columnByColumn.end(), mxGetPr(array));
    return array;
}

mxArray *Int32Array(std::int32_t value)
{
    const mwSize dimension = 1;
    mxArray *array = mxCreateNumericArray_730(1, &dimension, mxINT32_CLASS, mxREAL);
    *static_cast<std::int32_t *>(mxGetData(array)) = value;
    return array;
}

mxArray *TextArray(const WideString &text)
{
    const mwSize dimensions[] = {1, text.size()};
    mxArray *array = mxCreateCharArray_730(2, dimensions);
    if (!text.empty())
        std::copy(text.begin(), text.end(), mxGetChars(array));
    return array;
}

mxArray *TextsArray(const std::vector<WideString> &texts)
{
    const mwSize dimensions[] = {texts.size(), 1};
    mxArray *cell = mxCreateCellArray_730(2, dimensions);
    for (std::size_t i = 0; i < texts.size(); ++i)
        mxSetCell_730(cell, i, TextArray(texts[i]));
    return cell;
}

mxArray *AnyArray(Input &input, int depth)
{
    switch (input.below(depth < 2 ? 9 : 7)) {
    case 0:
        return NumberArray(Number(input));
    case 1:
        return Int32Array(input.bits<std::int16_t>());
    case 2:
        return TextArray(PropertyWord(input));
    case 3:
        return doubleArray(input, mxREAL);
    case 4:
        return doubleArray(input, mxCOMPLEX);
    case 5:
        return numericArray(input);
    case 6:
        return charMatrix(input);
    default:
        return cellArray(input, depth);
    }
}

} // namespace fuzz
