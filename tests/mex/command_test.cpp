#include "tests/mex/command_test.h"

#include <cstdio>

namespace support {

std::string SystemText(HRESULT result)
{
    WCHAR buffer[1024];
    const DWORD length = FormatMessageW(FORMAT_MESSAGE_FROM_SYSTEM | FORMAT_MESSAGE_IGNORE_INSERTS, nullptr,
                                        static_cast<DWORD>(result), 0x400, buffer, 1024, nullptr);
    if (length == 0) {
        char code[32];
        std::snprintf(code, sizeof code, "error code 0x%08X", static_cast<unsigned>(result));
        return code;
    }
    WideString text(buffer, length);
    if (text.ends_with(OLESTR("\r\n")))
        text.resize(text.size() - 2);
    return Narrow(text);
}

int ReferencesOn(IUnknown *object)
{
    object->AddRef();
    return static_cast<int>(object->Release());
}

std::vector<Array> NoHandles(const Array &handle)
{
    const std::int32_t value = handle.int32();
    return {Scalar(value),
            Int32Column({value, value}),
            Int32Column({}),
            Int32(value == 0 ? 1 : value - 1), // never given out
            Int32(-1),
            Int32(value | 0x10000),
            Single(static_cast<float>(value)),
            Logical(true),
            Text("1"),
            Cell({handle}),
            EmptyCell(),
            Empty()};
}

std::vector<Array> NoStrings()
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

void CommandTest::TearDown()
{
    handle = Array();
    MexTest::TearDown();
}

std::string CommandTest::refusal(const std::vector<Array> &arguments, int nlhs)
{
    const CallResult result = call(nlhs, arguments);
    EXPECT_FALSE(result.returned);
    EXPECT_EQ(result.warnings, std::vector<std::string>());
    mustReturn(1, {Scalar(5)});
    return result.error;
}

} // namespace support
