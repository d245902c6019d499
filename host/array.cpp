#include "host/array.h"

#include <algorithm>
#include <cstdio>
#include <cstdlib>

namespace host {

namespace {

void endProgram(const std::string &message)
{
    std::fprintf(stderr, "%s\n", message.c_str());
    std::exit(EXIT_FAILURE);
}

Complaint complain = endProgram;

template <class Value> Array filled(mxClassID classId, mwSize rows, mwSize columns, const std::vector<Value> &values)
{
    const mwSize dimensions[] = {rows, columns};
    Array array(mxCreateNumericArray_730(2, dimensions, classId, mxREAL));
    std::copy(values.begin(), values.end(), static_cast<Value *>(mxGetData(array.get())));
    return array;
}

Array cellOf(mwSize rows, mwSize columns, const std::vector<Array> &elements)
{
    const mwSize dimensions[] = {rows, columns};
    Array cell(mxCreateCellArray_730(2, dimensions));
    for (std::size_t i = 0; i < elements.size(); ++i)
        if (elements[i])
            mxSetCell_730(cell.get(), i, mxDuplicateArray(elements[i].get()));
    return cell;
}

template <class Value> std::vector<Value> contents(const Array &array)
{
    const Value *first = static_cast<const Value *>(mxGetData(array.get()));
    return {first, first + array.count()};
}

} // namespace

void SetComplaint(Complaint complaint) { complain = complaint; }

Array::Array(mxArray *owned) : array(owned, mxDestroyArray) {}

bool Array::is(mxClassID expected) const
{
    if (!array) {
        complain("there is no array");
        return false;
    }
    if (classId() != expected) {
        complain("the array is of class " + std::to_string(classId()) + ", not " + std::to_string(expected));
        return false;
    }
    return true;
}

mxClassID Array::classId() const { return array ? mxGetClassID(get()) : mxUNKNOWN_CLASS; }

std::vector<std::size_t> Array::dimensions() const
{
    if (!array)
        return {};
    const mwSize *first = mxGetDimensions(get());
    return {first, first + mxGetNumberOfDimensions(get())};
}

std::size_t Array::count() const { return array ? mxGetNumberOfElements(get()) : 0; }

bool Array::isScalar(mxClassID expected) const
{
    if (!is(expected))
        return false;
    if (count() != 1)
        complain("the array has " + std::to_string(count()) + " elements, not 1");
    return count() == 1;
}

double Array::number() const { return isScalar(mxDOUBLE_CLASS) ? numbers()[0] : 0; }

std::vector<double> Array::numbers() const
{
    if (!is(mxDOUBLE_CLASS))
        return {};
    if (mxIsComplex(get()))
        complain("the array is complex");
    return contents<double>(*this);
}

std::vector<std::vector<double>> Array::matrix() const
{
    const std::vector<double> values = numbers();
    if (values.empty())
        return {};
    const std::size_t rowCount = mxGetM(get());
    std::vector<std::vector<double>> rows(rowCount);
    for (std::size_t i = 0; i < values.size(); ++i)
        rows[i % rowCount].push_back(values[i]);
    return rows;
}

std::int32_t Array::int32() const { return isScalar(mxINT32_CLASS) ? int32s()[0] : 0; }

std::vector<std::int32_t> Array::int32s() const
{
    if (!is(mxINT32_CLASS))
        return {};
    return contents<std::int32_t>(*this);
}

WideString Array::text() const
{
    if (!is(mxCHAR_CLASS))
        return {};
    if (dimensions() != std::vector<std::size_t>{1, count()})
        complain("the text is not one row");
    return {mxGetChars(get()), count()};
}

std::vector<WideString> Array::texts() const
{
    if (!is(mxCELL_CLASS))
        return {};
    if (dimensions() != std::vector<std::size_t>{count(), count() == 0 ? 0u : 1u})
        complain("the cell is no column");
    std::vector<WideString> result;
    for (std::size_t i = 0; i < count(); ++i)
        result.push_back(element(i).text());
    return result;
}

Array Array::element(std::size_t index) const
{
    Array result;
    if (!is(mxCELL_CLASS))
        return result;
    if (index >= count())
        complain("the cell has " + std::to_string(count()) + " elements, none with the index " + std::to_string(index));
    if (mxArray *found = mxGetCell_730(get(), index))
        result.array = std::shared_ptr<mxArray>(array, found);
    return result;
}

std::vector<std::vector<double>> Array::cellMatrix(std::size_t index) const { return element(index).matrix(); }

Array Scalar(double value) { return Filled(1, 1, value); }

Array Column(const std::vector<double> &values) { return filled(mxDOUBLE_CLASS, values.size(), 1, values); }

Array Row(const std::vector<double> &values) { return filled(mxDOUBLE_CLASS, 1, values.size(), values); }

Array Matrix(const std::vector<std::vector<double>> &rows)
{
    const std::size_t columns = rows.empty() ? 0 : rows[0].size();
    std::vector<double> values;
    for (std::size_t column = 0; column < columns; ++column)
        for (const std::vector<double> &row : rows)
            values.push_back(row.at(column));
    return filled(mxDOUBLE_CLASS, rows.size(), columns, values);
}

Array Filled(std::size_t rows, std::size_t columns, double value)
{
    Array array(mxCreateDoubleMatrix_730(rows, columns, mxREAL));
    std::fill_n(mxGetPr(array.get()), rows * columns, value);
    return array;
}

Array Zeros(const std::vector<mwSize> &dimensions)
{
    return Array(mxCreateNumericArray_730(dimensions.size(), dimensions.data(), mxDOUBLE_CLASS, mxREAL));
}

Array Empty() { return Zeros({0, 0}); }

Array Complex(double real, double imaginary)
{
    Array array(mxCreateDoubleMatrix_730(1, 1, mxCOMPLEX));
    *mxGetPr(array.get()) = real;
    *mxGetPi(array.get()) = imaginary;
    return array;
}

Array ComplexColumn(const std::vector<double> &real)
{
    Array array(mxCreateDoubleMatrix_730(real.size(), 1, mxCOMPLEX));
    std::copy(real.begin(), real.end(), mxGetPr(array.get()));
    return array;
}

Array Int32(std::int32_t value) { return filled<std::int32_t>(mxINT32_CLASS, 1, 1, {value}); }

Array Int32Column(const std::vector<std::int32_t> &values) { return filled(mxINT32_CLASS, values.size(), 1, values); }

Array Logical(bool value) { return Array(mxCreateLogicalScalar(value)); }

Array Single(float value) { return filled<float>(mxSINGLE_CLASS, 1, 1, {value}); }

Array SingleColumn(const std::vector<float> &values) { return filled(mxSINGLE_CLASS, values.size(), 1, values); }

Array Text(const WideString &text)
{
    const mwSize dimensions[] = {1, text.size()};
    Array array(mxCreateCharArray_730(2, dimensions));
    std::copy(text.begin(), text.end(), mxGetChars(array.get()));
    return array;
}

Array Text(std::string_view ascii) { return Text(WideString(ascii.begin(), ascii.end())); }

Array EmptyText()
{
    const mwSize dimensions[] = {0, 0};
    return Array(mxCreateCharArray_730(2, dimensions));
}

Array TextMatrix(const std::vector<WideString> &rows)
{
    const mwSize dimensions[] = {rows.size(), rows.empty() ? 0 : rows[0].size()};
    Array array(mxCreateCharArray_730(2, dimensions));
    WCHAR *target = mxGetChars(array.get());
    for (mwSize column = 0; column < dimensions[1]; ++column)
        for (const WideString &row : rows)
            *target++ = row.at(column);
    return array;
}

Array Cell(const std::vector<Array> &elements) { return cellOf(elements.size(), 1, elements); }

Array CellRow(const std::vector<Array> &elements) { return cellOf(1, elements.size(), elements); }

Array Texts(std::initializer_list<std::string_view> ascii)
{
    std::vector<Array> elements;
    for (const std::string_view text : ascii)
        elements.push_back(Text(text));
    return Cell(elements);
}

Array EmptyCell() { return cellOf(0, 0, {}); }

} // namespace host
