// The library loaded, used, cleared and unloaded again and again in one process leaves nothing behind. The package is a
// real one, created by the real COM.
#include "platform/procedure.h"
#include "tests/support/mex_test.h"

using namespace support;

namespace {

// What the process holds of the system.
struct Holdings {
    DWORD handles = 0;
    std::size_t heapBytes = 0; // in all heaps
};

std::size_t usedBytes(HANDLE heap)
{
    std::size_t bytes = 0;
    HeapLock(heap);
    PROCESS_HEAP_ENTRY entry = {};
    while (HeapWalk(heap, &entry))
        if (entry.wFlags & PROCESS_HEAP_ENTRY_BUSY)
            bytes += entry.cbData;
    HeapUnlock(heap);
    return bytes;
}

Holdings holdings()
{
    Holdings held;
    GetProcessHandleCount(GetCurrentProcess(), &held.handles);
    HANDLE heaps[64];
    const DWORD count = GetProcessHeaps(64, heaps);
    EXPECT_LE(count, 64u);
    for (DWORD i = 0; i < count && i < 64; ++i)
        held.heapBytes += usedBytes(heaps[i]);
    return held;
}

class Reload : public MexTest {
protected:
    void SetUp() override
    {
        MexTest::SetUp();
        EXPECT_EQ(callReference("DllRegisterServer"), S_OK);
    }
    void TearDown() override
    {
        EXPECT_EQ(callReference("DllUnregisterServer"), S_OK);
        MexTest::TearDown();
    }

    void useAndClear(bool closes)
    {
        const std::vector<double> gas = {0.80, 0.08, 0.05, 0.02, 0, 0.01, 0, 0, 0.02, 0.02, 0};
        matlab.load(); // which unloads the last one
        EXPECT_EQ(mustReturn(1, {Scalar(26)})[0].text(), Wide("Verdanth.DLL version: 2.0.0.4"));
        EXPECT_EQ(mustReturn(1, {Scalar(2), Text("Verdanth Reference Packages")})[0].count(), 9u);
        // Alone: what a manager is asked for by name keeps the name.
        handle = open("Verdanth Natural Gas (stand-alone)");
        EXPECT_EQ(mustReturn(5, {Scalar(24), handle, Row(gas), Text("Temperature"), Scalar(220), Text("Pressure"),
                                 Scalar(40e5), Text("Unspecified")})[0]
                      .texts(),
                  Names({"Vapor", "Liquid"}));
        EXPECT_FALSE(call(1, {Scalar(16), handle, Text("noProperty")}).returned);
        if (closes)
            mustReturn(0, {Scalar(4), handle});
        handle = Array();
        EXPECT_TRUE(matlab.clear());
    }

private:
    HRESULT callReference(const char *function)
    {
        const HMODULE library = LoadLibraryW(OLESTR("VerdanthReference.dll"));
        const HRESULT result = findProcedure<HRESULT STDAPICALLTYPE()>(library, function)();
        FreeLibrary(library);
        return result;
    }
};

} // namespace

TEST_F(Reload, AHundredTimesLeavesNothingBehind)
{
    constexpr int times = 100;
    constexpr std::size_t runtimesOwn = 64; // what the C runtime leaves behind of a lock at each load
    matlab.clear();
    for (int i = 0; i < 10; ++i) // what the system keeps for itself it has by then
        useAndClear(i % 2 == 0);
    const Holdings before = holdings();
    for (int i = 0; i < times; ++i)
        useAndClear(i % 2 == 0);
    const Holdings after = holdings();
    EXPECT_LE(after.handles, before.handles);
    EXPECT_LE(after.heapBytes, before.heapBytes + times * runtimesOwn);
}
