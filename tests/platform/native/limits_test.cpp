// Where Windows and its other implementations differ, and the stand-in has chosen.
#include "platform/native/automation.h"
#include "platform/native/modules.h"
#include "platform/native/text.h"

#include <gtest/gtest.h>

#include <string>

TEST(SafeArrayLimits, RefuseWhatNoMemoryCanHold)
{
    SAFEARRAYBOUND bounds[] = {{0x40000000, 0}, {0x40000000, 0}, {0x40000000, 0}};
    for (const UINT dimensions : {1u, 2u, 3u})
        EXPECT_EQ(SafeArrayCreate(VT_R8, dimensions, bounds), nullptr) << dimensions;
    EXPECT_EQ(SafeArrayCreate(VT_R8, 65, bounds), nullptr);
}

TEST(SafeArrayLimits, MakeNothingOfHugeBoundsWithAnEmptyOne)
{
    SAFEARRAYBOUND bounds[] = {{0x40000000, 0}, {0x40000000, 0}, {0, 0}};
    SAFEARRAY *array = SafeArrayCreate(VT_R8, 3, bounds);
    ASSERT_NE(array, nullptr);
    EXPECT_EQ(SafeArrayDestroy(array), S_OK);
}

TEST(BstrLimits, RefuseWhatNoLengthCanTell) { EXPECT_EQ(SysAllocStringLen(nullptr, 0x7FFFFFFF), nullptr); }

TEST(SwprintfLimits, FailWhereTheTextDoesNotFit)
{
    WCHAR buffer[4];
    EXPECT_EQ(swprintf(buffer, 4, u"%d", 1234), -1);
    EXPECT_EQ(swprintf(buffer, 4, u"%d", 123), 3);
}

TEST(ModuleFileNameLimits, TerminateAPathThatIsCut)
{
    WCHAR text[4];
    EXPECT_EQ(GetModuleFileNameW(nullptr, text, 4), 4u);
    EXPECT_EQ(std::char_traits<WCHAR>::length(text), 3u);
    EXPECT_EQ(GetModuleFileNameW(nullptr, text, 0), 0u);
}

TEST(NullString, StaysNullInAnArray)
{
    SAFEARRAY *array = SafeArrayCreateVector(VT_BSTR, 0, 1);
    LONG index = 0;
    BSTR read = SysAllocString(u"x");
    EXPECT_EQ(SafeArrayPutElement(array, &index, read), S_OK);
    SysFreeString(read);
    EXPECT_EQ(SafeArrayPutElement(array, &index, nullptr), S_OK);
    EXPECT_EQ(SafeArrayGetElement(array, &index, &read), S_OK);
    EXPECT_EQ(read, nullptr);
    EXPECT_EQ(SafeArrayDestroy(array), S_OK);
}
