#include "platform/native/seam.h"
#include "tests/platform/module/module_class.h"
#include "tests/platform/scratch_key.h"

#include <cstring>

namespace {

// A VARIANT with an array of two strings: three allocations to make, and as many to copy.
VARIANT twoStrings()
{
    VARIANT value;
    value.vt = VT_ARRAY | VT_BSTR;
    value.parray = SafeArrayCreateVector(VT_BSTR, 0, 2);
    for (LONG index = 0; index < 2; ++index) {
        BSTR text = SysAllocString(u"methane");
        EXPECT_EQ(SafeArrayPutElement(value.parray, &index, text), S_OK);
        SysFreeString(text);
    }
    return value;
}

} // namespace

TEST(NthCall, StrikesOnceAtTheChosenCall)
{
    seam::NthCall calls;
    EXPECT_FALSE(calls.strikes());
    calls.failAt(2);
    EXPECT_FALSE(calls.strikes());
    EXPECT_FALSE(calls.struck());
    EXPECT_TRUE(calls.strikes());
    EXPECT_TRUE(calls.struck());
    EXPECT_FALSE(calls.strikes());
    EXPECT_TRUE(calls.struck());
}

TEST(NthCall, LetsAllThroughThatFollowsZero)
{
    seam::NthCall calls;
    calls.failAt(1);
    EXPECT_TRUE(calls.strikes());
    calls.failAt(2);
    EXPECT_FALSE(calls.struck()) << "of the call before";
    calls.failAt(0);
    for (int i = 0; i < 3; ++i)
        EXPECT_FALSE(calls.strikes());
    EXPECT_FALSE(calls.struck());
}

TEST(FailedAllocation, MakesNoString)
{
    seam::allocations.failAt(1);
    EXPECT_EQ(SysAllocString(u"methane"), nullptr);
    seam::allocations.failAt(1);
    EXPECT_EQ(SysAllocStringLen(nullptr, 3), nullptr);
}

TEST(FailedAllocation, MakesNoArray)
{
    seam::allocations.failAt(1);
    EXPECT_EQ(SafeArrayCreateVector(VT_R8, 0, 3), nullptr);
}

TEST(FailedAllocation, LeavesACopyEmptyAndTheSourceWhole)
{
    VARIANT source = twoStrings();
    int failures = 0;
    for (int call = 1;; ++call) {
        VARIANT copy;
        VariantInit(&copy);
        seam::allocations.failAt(call);
        const HRESULT result = VariantCopy(&copy, &source);
        if (SUCCEEDED(result)) {
            VariantClear(&copy);
            break;
        }
        EXPECT_EQ(result, E_OUTOFMEMORY);
        EXPECT_EQ(copy.vt, VT_EMPTY);
        ++failures;
    }
    seam::allocations.failAt(0);
    EXPECT_EQ(failures, 3);
    EXPECT_EQ(VariantClear(&source), S_OK);
}

TEST(FailedAllocation, LeavesAnElementAsItWas)
{
    VARIANT value = twoStrings();
    LONG index = 1;
    BSTR text = SysAllocString(u"ethane");
    seam::allocations.failAt(1);
    EXPECT_EQ(SafeArrayPutElement(value.parray, &index, text), E_OUTOFMEMORY);
    SysFreeString(text);
    seam::allocations.failAt(1);
    EXPECT_EQ(SafeArrayGetElement(value.parray, &index, &text), E_OUTOFMEMORY);
    EXPECT_EQ(text, nullptr);
    EXPECT_EQ(SafeArrayGetElement(value.parray, &index, &text), S_OK);
    EXPECT_EQ(WideString(text), u"methane");
    SysFreeString(text);
    VariantClear(&value);
}

TEST(FailedAllocation, WritesNoIdentifier)
{
    LPOLESTR text = reinterpret_cast<LPOLESTR>(1);
    seam::allocations.failAt(1);
    EXPECT_EQ(StringFromCLSID(filedClass, &text), E_OUTOFMEMORY);
    EXPECT_EQ(text, nullptr);
}

TEST(FailedRegistryCall, IsTheChosenOne)
{
    ScratchKey scratch;
    scratch.addKey(u"a");
    scratch.setText(u"v", u"1");
    HKEY key = nullptr;
    WCHAR name[16];
    DWORD size = 0;
    seam::registryCalls.failAt(1);
    EXPECT_EQ(RegOpenKeyExW(scratch.handle(), u"a", 0, KEY_READ, &key), ERROR_ACCESS_DENIED);
    seam::registryCalls.failAt(2);
    EXPECT_EQ(RegOpenKeyExW(scratch.handle(), u"a", 0, KEY_READ, &key), ERROR_SUCCESS);
    EXPECT_EQ(RegEnumKeyW(scratch.handle(), 0, name, 16), ERROR_ACCESS_DENIED);
    EXPECT_EQ(RegEnumKeyW(scratch.handle(), 0, name, 16), ERROR_SUCCESS);
    seam::registryCalls.failAt(1);
    EXPECT_EQ(RegQueryValueExW(scratch.handle(), u"v", nullptr, nullptr, nullptr, &size), ERROR_ACCESS_DENIED);
    EXPECT_EQ(RegCloseKey(key), ERROR_SUCCESS);
}

TEST(RegistryCounts, TellOpensAndOpenKeys)
{
    ScratchKey scratch;
    const int opens = seam::registryOpens;
    const int openKeys = seam::openRegistryKeys;
    HKEY key = nullptr;
    EXPECT_EQ(RegOpenKeyExW(scratch.handle(), nullptr, 0, KEY_READ, &key), ERROR_SUCCESS);
    EXPECT_EQ(seam::openRegistryKeys, openKeys + 1);
    RegCloseKey(key);
    RegCloseKey(key); // counts nothing: it is closed
    EXPECT_EQ(RegOpenKeyExA(scratch.handle(), "missing", 0, KEY_READ, &key), ERROR_FILE_NOT_FOUND);
    EXPECT_EQ(seam::registryOpens, opens + 2);
    EXPECT_EQ(seam::openRegistryKeys, openKeys);
}

TEST(DeletedKey, IsOfNoUseToThoseWhoHaveItOpen)
{
    ScratchKey scratch;
    scratch.addKey(u"a\\b");
    HKEY key = nullptr;
    ASSERT_EQ(RegOpenKeyExW(scratch.handle(), u"a\\b", 0, KEY_READ, &key), ERROR_SUCCESS);
    ASSERT_EQ(RegDeleteTreeW(scratch.handle(), u"a"), ERROR_SUCCESS);
    WCHAR name[16];
    EXPECT_EQ(RegEnumKeyW(key, 0, name, 16), ERROR_KEY_DELETED);
    EXPECT_EQ(RegCloseKey(key), ERROR_SUCCESS);
}

TEST(FailedCreation, AnswersWhatTheTestChose)
{
    ASSERT_EQ(CoInitializeEx(nullptr, COINIT_APARTMENTTHREADED), S_OK);
    IUnknown *object = nullptr;
    const auto create = [&] {
        return CoCreateInstance(filedClass, nullptr, CLSCTX_INPROC_SERVER, InterfaceId<IUnknown>,
                                reinterpret_cast<void **>(&object));
    };
    seam::comCalls.failAt(2);
    seam::comFailure = E_ACCESSDENIED;
    EXPECT_EQ(create(), S_OK);
    object->Release();
    EXPECT_EQ(create(), E_ACCESSDENIED);
    EXPECT_EQ(object, nullptr);
    EXPECT_EQ(create(), S_OK);
    object->Release();
    CoUninitialize();
}
