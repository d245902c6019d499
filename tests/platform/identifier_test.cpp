#include "tests/platform/scratch_key.h"

namespace {

constexpr CLSID classId = {0x12345678, 0x9ABC, 0xDEF0, {0x0F, 0x1E, 0x2D, 0x3C, 0x4B, 0x5A, 0x69, 0x78}};
constexpr const WCHAR *classText = OLESTR("{12345678-9ABC-DEF0-0F1E-2D3C4B5A6978}");

} // namespace

TEST(Identifier, IsWrittenInUpperCaseAndBraces)
{
    LPOLESTR text = nullptr;
    ASSERT_EQ(StringFromCLSID(classId, &text), S_OK);
    EXPECT_EQ(WideString(text), classText);
    CoTaskMemFree(text);
}

TEST(Identifier, IsWrittenWhereItFits)
{
    WCHAR text[39];
    EXPECT_EQ(StringFromGUID2(classId, text, 38), 0);
    EXPECT_EQ(StringFromGUID2(classId, text, 39), 39);
    EXPECT_EQ(WideString(text), classText);
}

TEST(Identifier, IsReadInAnyCase)
{
    for (const WCHAR *text : {classText, OLESTR("{12345678-9abc-def0-0f1e-2d3c4b5a6978}")}) {
        CLSID read{};
        EXPECT_EQ(CLSIDFromString(text, &read), S_OK);
        EXPECT_TRUE(read == classId);
    }
}

TEST(Identifier, OfNoTextIsZero)
{
    CLSID read = classId;
    EXPECT_EQ(CLSIDFromString(nullptr, &read), S_OK);
    EXPECT_TRUE(read == CLSID{});
}

TEST(Identifier, IsNotReadFromOtherTexts)
{
    for (const WCHAR *text :
         {OLESTR("{12345678-9ABC-DEF0-0F1E-2D3C4B5A697}"), OLESTR("{12345678-9ABC-DEF0-0F1E-2D3C4B5A69789}"),
          OLESTR("{12345678-9ABC-DEF0-0F1E-2D3C4B5A6978"), OLESTR("{12345678-9ABC-DEF0-0F1E-2D3C4B5A697G}"),
          OLESTR("{12345678_9ABC-DEF0-0F1E-2D3C4B5A6978}"), OLESTR("{}"), OLESTR(""),
          OLESTR("12345678-9ABC-DEF0-0F1E-2D3C4B5A6978"), OLESTR("No.Such.Program.Id")}) {
        CLSID read;
        EXPECT_EQ(CLSIDFromString(text, &read), CO_E_CLASSSTRING) << testing::PrintToString(WideString(text));
    }
}

TEST(Identifier, IsFoundByItsProgramId)
{
    ScratchKey program;
    ScratchKey programClass(program.name() + OLESTR("\\CLSID"));
    programClass.setText(nullptr, classText);
    CLSID read{};
    EXPECT_EQ(CLSIDFromString(program.name().c_str(), &read), S_OK);
    EXPECT_TRUE(read == classId);
}

TEST(ProgramId, IsFoundByTheClass)
{
    const CLSID own = {0x6B1D7A40, 0x51C2, 0x4E5B, {0x9C, 0x01, 0x3A, 0x77, 0x20, 0x5D, 0xE8, 0x11}};
    LPOLESTR text = reinterpret_cast<LPOLESTR>(1);
    EXPECT_EQ(ProgIDFromCLSID(own, &text), REGDB_E_CLASSNOTREG);
    EXPECT_EQ(text, nullptr);
    ScratchKey registered(OLESTR("CLSID\\{6B1D7A40-51C2-4E5B-9C01-3A77205DE811}"));
    ScratchKey programId(registered.name() + OLESTR("\\ProgID"));
    programId.setText(nullptr, OLESTR("Verdanth.PlatformTest.1"));
    ASSERT_EQ(ProgIDFromCLSID(own, &text), S_OK);
    EXPECT_EQ(WideString(text), OLESTR("Verdanth.PlatformTest.1"));
    CoTaskMemFree(text);
}

TEST(TaskMemory, OfNullCanBeFreed)
{
    void *block = CoTaskMemAlloc(100);
    ASSERT_NE(block, nullptr);
    CoTaskMemFree(block);
    CoTaskMemFree(nullptr);
}
