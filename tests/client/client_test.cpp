#include "tests/client/client_test.h"

#include "platform/procedure.h"
#include "platform/windows/module_folder.h"
#include "tests/support/processes.h"

namespace support {

namespace {

void callServer(LPCWSTR library, LPCSTR function)
{
    const HMODULE module = LoadLibraryW(library);
    const auto registering = findProcedure<HRESULT STDAPICALLTYPE()>(module, function);
    ASSERT_TRUE(registering);
    EXPECT_EQ(registering(), S_OK);
    FreeLibrary(module);
}

constexpr LPCWSTR packages[] = {L"VerdanthReference.dll", L"ill_packages.dll"};

} // namespace

void ClientTest::SetUpTestSuite()
{
    for (const LPCWSTR library : packages)
        callServer(library, "DllRegisterServer");
}

void ClientTest::TearDownTestSuite()
{
    for (const LPCWSTR library : packages)
        callServer(library, "DllUnregisterServer");
}

void ClientTest::SetUp()
{
    arraysBefore = mxStandInLiveArrays();
    ASSERT_TRUE(matlab.loaded());
}

void ClientTest::TearDown()
{
    mxStandInFailCreation(0);
    set(L"VERDANTH_TIME_LIMIT", nullptr);
    set(L"VERDANTH_START_LIMIT", nullptr);
    matlab.clear();
    EXPECT_EQ(HostsOf(GetCurrentProcessId()), std::vector<DWORD>());
    EXPECT_EQ(mxStandInLiveArrays(), arraysBefore) << "arrays are left";
}

CallResult ClientTest::mustReturn(int nlhs, const std::vector<Array> &arguments)
{
    CallResult result = call(nlhs, arguments);
    EXPECT_TRUE(result.returned) << result.error;
    return result;
}

std::string ClientTest::refusal(const std::vector<Array> &arguments)
{
    const CallResult result = call(1, arguments);
    EXPECT_FALSE(result.returned);
    EXPECT_EQ(result.warnings, std::vector<std::string>());
    return result.error;
}

Array ClientTest::open(const char *manager, const char *package)
{
    return mustReturn(1, {Scalar(3), Text(manager), Text(package)})[0];
}

std::vector<DWORD> HostsOf(DWORD parent) { return ProcessesOf(L"VerdanthHost64.exe", parent); }

WideString FolderOfTests() { return FolderOf(nullptr); }

} // namespace support
