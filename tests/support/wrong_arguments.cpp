#include "tests/support/wrong_arguments.h"

namespace support {

std::vector<Array> WrongHandles(const Array &handle)
{
    const std::int32_t value = handle.int32();
    return {Scalar(value),
            Single(static_cast<float>(value)),
            Int32Column({value, value}),
            Int32Column({}),
            Int32(value == 0 ? 1 : value - 1),
            Int32(value == 32767 ? 0 : value + 1),
            Int32(value ^ 1),
            Int32(value | 0x10000),
            Int32(-1),
            Int32(2147483647),
            Empty(),
            Logical(true),
            Complex(value, 0),
            Text("1"),
            Text("Alone"),
            Cell({handle}),
            EmptyCell()};
}

std::vector<Array> WrongStrings()
{
    return {Scalar(1),
            Int32(1),
            Logical(true),
            Empty(),
            EmptyCell(),
            Cell({Scalar(1)}),
            Texts({"a", "b"}),
            CellRow({Text("a"), Text("b")}),
            Cell({Texts({"a"})}),
            Cell({Array()})};
}

std::vector<Array> WrongScalars()
{
    return {Complex(300, 0), Single(300), Int32(300), Logical(true), Text("3"), Cell({Scalar(300)})};
}

Array ComplexRow(std::size_t columns) { return Array(mxCreateDoubleMatrix_730(1, columns, mxCOMPLEX)); }

} // namespace support
