#include "fuzz/octave/values.h"

#include <octave/Cell.h>
#include <octave/Range.h>
#include <octave/interpreter.h>
#include <octave/ov-struct.h>
#include <octave/parse.h>

#include <algorithm>
#include <cmath>

namespace {

constexpr int deepest = 3;

std::vector<octave_value> oddValues;

// Up to four dimensions; often a scalar or a row.
dim_vector anyShape(FuzzedDataProvider &input)
{
    dim_vector shape(1, 1);
    const int count = input.ConsumeIntegralInRange(1, 4);
    if (count > 2)
        shape.resize(count, 1);
    for (int i = 0; i < shape.ndims(); ++i)
        shape(i) = input.ConsumeIntegralInRange<octave_idx_type>(0, 3);
    return shape;
}

dim_vector anyMatrixShape(FuzzedDataProvider &input)
{
    return {input.ConsumeIntegralInRange<octave_idx_type>(0, 4), input.ConsumeIntegralInRange<octave_idx_type>(0, 4)};
}

template <class Array> Array numbers(FuzzedDataProvider &input)
{
    Array array(anyShape(input));
    for (octave_idx_type i = 0; i < array.numel(); ++i)
        array(i) = typename Array::element_type(AnyNumber(input));
    return array;
}

template <class Array> Array complexNumbers(FuzzedDataProvider &input)
{
    using Element = typename Array::element_type;
    Array array(anyShape(input));
    for (octave_idx_type i = 0; i < array.numel(); ++i)
        array(i) = Element{static_cast<typename Element::value_type>(AnyNumber(input)),
                           static_cast<typename Element::value_type>(AnyNumber(input))};
    return array;
}

boolNDArray truths(FuzzedDataProvider &input)
{
    boolNDArray array(anyShape(input));
    for (octave_idx_type i = 0; i < array.numel(); ++i)
        array(i) = input.ConsumeBool();
    return array;
}

octave_value texts(FuzzedDataProvider &input)
{
    static constexpr const char *words[] = {
        "Verdanth Reference Packages",          "Natural gas", "density", "Vapor", "temperature", "mole",
        "\xc3\xa4\xe6\xb0\xb4\xf0\x9f\x98\x80", "\xff\xfe"};
    const char quote = input.ConsumeBool() ? '\'' : '"';
    if (input.ConsumeBool())
        return {input.PickValueInArray(words), quote};
    if (input.ConsumeBool())
        return {input.ConsumeRandomLengthString(20), quote};
    charNDArray array(anyShape(input));
    for (octave_idx_type i = 0; i < array.numel(); ++i)
        array(i) = static_cast<char>(input.ConsumeIntegral<std::uint8_t>());
    return {array, quote};
}

Matrix fewNumbers(FuzzedDataProvider &input)
{
    Matrix matrix(anyMatrixShape(input), 0.0);
    for (octave_idx_type i = 0; i < matrix.numel(); ++i)
        if (input.ConsumeBool())
            matrix(i) = AnyNumber(input);
    return matrix;
}

octave_value sparse(FuzzedDataProvider &input)
{
    switch (input.ConsumeIntegralInRange(0, 2)) {
    case 0:
        return SparseMatrix(fewNumbers(input));
    case 1:
        return SparseComplexMatrix(ComplexMatrix(fewNumbers(input)));
    default:
        return SparseBoolMatrix(boolMatrix(anyMatrixShape(input), true));
    }
}

// What Octave keeps as a rule and not as elements.
octave_value lazy(FuzzedDataProvider &input)
{
    const auto n = input.ConsumeIntegralInRange<octave_idx_type>(0, 4);
    switch (input.ConsumeIntegralInRange(0, 5)) {
    case 0: {
        const double base = input.ConsumeIntegral<std::int8_t>();
        const double increment = input.ConsumeIntegral<std::int8_t>() / 4.0;
        return octave::range<double>(base, increment, input.ConsumeIntegral<std::int8_t>());
    }
    case 1: {
        const auto columns = input.ConsumeIntegralInRange<octave_idx_type>(0, 4);
        return DiagMatrix(n, columns, AnyNumber(input));
    }
    case 2:
        return ComplexDiagMatrix(n, n, Complex{AnyNumber(input), AnyNumber(input)});
    case 3:
        return FloatDiagMatrix(n, n, static_cast<float>(AnyNumber(input)));
    case 4:
        return PermMatrix(n);
    default:
        return octave::idx_vector(octave_idx_type{0}, n);
    }
}

octave_value cells(FuzzedDataProvider &input, int depth)
{
    Cell cell(anyShape(input));
    for (octave_idx_type i = 0; i < cell.numel(); ++i)
        if (input.ConsumeIntegralInRange(0, 7) != 0)
            cell(i) = AnyValue(input, depth + 1);
    return cell;
}

octave_value structs(FuzzedDataProvider &input, int depth)
{
    if (input.ConsumeBool()) {
        octave_scalar_map one;
        one.assign("field", AnyValue(input, depth + 1));
        return one;
    }
    octave_map several(anyShape(input));
    several.assign("field", Cell(several.dims(), octave_value(1.0)));
    return several;
}

octave_value integers(FuzzedDataProvider &input)
{
    switch (input.ConsumeIntegralInRange(0, 7)) {
    case 0:
        return numbers<int8NDArray>(input);
    case 1:
        return numbers<uint8NDArray>(input);
    case 2:
        return numbers<int16NDArray>(input);
    case 3:
        return numbers<uint16NDArray>(input);
    case 4:
        return numbers<int32NDArray>(input);
    case 5:
        return numbers<uint32NDArray>(input);
    case 6:
        return numbers<int64NDArray>(input);
    default:
        return numbers<uint64NDArray>(input);
    }
}

// The numbers that a class can hold without a change.
bool areWhole(const NDArray &array, double lowest, double highest)
{
    for (octave_idx_type i = 0; i < array.numel(); ++i)
        if (!(array(i) >= lowest && array(i) <= highest && array(i) == std::floor(array(i))))
            return false;
    return true;
}

} // namespace

void MakeOddValues()
{
    for (const char *expression : {"@(x) x + 1", "@sin"})
        oddValues.push_back(octave::feval("str2func", octave_value(expression), 1)(0));
    oddValues.push_back(octave::feval("containers.Map", octave_value_list(), 1)(0));
    oddValues.push_back(octave::feval("inputParser", octave_value_list(), 1)(0));
    oddValues.emplace_back(octave_value::magic_colon_t);
    oddValues.emplace_back(Cell());
    oddValues.emplace_back(octave_scalar_map());
    oddValues.emplace_back(octave_map());
}

octave_value Row(std::initializer_list<double> numbers)
{
    RowVector row(static_cast<octave_idx_type>(numbers.size()));
    std::copy(numbers.begin(), numbers.end(), row.fortran_vec());
    return row;
}

octave_value Column(std::initializer_list<double> numbers)
{
    ColumnVector column(static_cast<octave_idx_type>(numbers.size()));
    std::copy(numbers.begin(), numbers.end(), column.fortran_vec());
    return column;
}

octave_value AnyValue(FuzzedDataProvider &input, int depth)
{
    switch (input.ConsumeIntegralInRange(0, 13)) {
    case 0:
        return AnyNumber(input);
    case 1:
        return numbers<NDArray>(input);
    case 2:
        return numbers<FloatNDArray>(input);
    case 3:
    case 4:
        return integers(input);
    case 5:
        return truths(input);
    case 6:
        return input.ConsumeBool() ? octave_value(complexNumbers<ComplexNDArray>(input))
                                   : octave_value(complexNumbers<FloatComplexNDArray>(input));
    case 7:
        return sparse(input);
    case 8:
        return lazy(input);
    case 9:
        return input.PickValueInArray({true, false});
    case 10:
        return depth < deepest ? cells(input, depth) : octave_value(Cell());
    case 11:
        return depth < deepest ? structs(input, depth) : octave_value(octave_map());
    case 12:
        return oddValues[input.ConsumeIntegralInRange<std::size_t>(0, oddValues.size() - 1)];
    default:
        return texts(input);
    }
}

octave_value InAnotherForm(FuzzedDataProvider &input, const octave_value &value)
{
    if (!value.is_double_type() || !value.isreal() || value.issparse())
        return value;
    const NDArray array = value.array_value();
    switch (input.ConsumeIntegralInRange(0, 8)) {
    case 0:
        return areWhole(array, -16777216, 16777216) ? octave_value(FloatNDArray(array)) : value;
    case 1:
        return areWhole(array, -128, 127) ? octave_value(int8NDArray(array)) : value;
    case 2:
        return areWhole(array, 0, 255) ? octave_value(uint8NDArray(array)) : value;
    case 3:
        return areWhole(array, -32768, 32767) ? octave_value(int16NDArray(array)) : value;
    case 4:
        return areWhole(array, 0, 65535) ? octave_value(uint16NDArray(array)) : value;
    case 5:
        return areWhole(array, -2147483648.0, 2147483647.0) ? octave_value(int32NDArray(array)) : value;
    case 6:
        return areWhole(array, 0, 4294967295.0) ? octave_value(uint32NDArray(array)) : value;
    case 7:
        return areWhole(array, -9e15, 9e15) ? octave_value(int64NDArray(array)) : value;
    default:
        return areWhole(array, 0, 9e15) ? octave_value(uint64NDArray(array)) : value;
    }
}
