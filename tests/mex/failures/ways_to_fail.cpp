#include "tests/mex/failures/ways_to_fail.h"

#include "platform/matlab/standin.h"
#include "tests/mex/failures/command_rows.h"
#include "tests/mex/failures/surroundings.h"
#include "tests/mex/support/failing_call.h"

#include <cstdlib>

namespace support {

namespace {

// The thread is in an apartment of another kind. The exit routine leaves the one that it is in, all the same.
Lead entersOtherwise()
{
    return [](NthCall &calls) {
        return std::make_shared<LibraryCall<"CoInitializeEx", decltype(CoInitializeEx)>>(
            CoInitializeEx, [&calls](LPVOID reserved, DWORD mode) {
                constexpr auto changedMode = static_cast<HRESULT>(0x80010106u); // RPC_E_CHANGED_MODE
                const HRESULT entered = CoInitializeEx(reserved, mode);
                return calls.strikes() ? changedMode : entered;
            });
    };
}

Lead narrowsNothing()
{
    using Narrowing = LibraryCall<"WideCharToMultiByte", decltype(WideCharToMultiByte)>;
    return [](NthCall &calls) {
        return std::make_shared<Narrowing>(WideCharToMultiByte, [&calls](auto... arguments) {
            if (!calls.strikes())
                return WideCharToMultiByte(arguments...);
            SetLastError(ERROR_INVALID_PARAMETER);
            return 0;
        });
    };
}

// MATLAB ends the call.
template <FunctionName Name, class... Arguments> Lead endsIn(mxArray *(*create)(Arguments...))
{
    return [=](NthCall &calls) {
        return std::make_shared<LibraryCall<Name, mxArray *(Arguments...)>>(create,
                                                                            [=, &calls](Arguments... arguments) {
                                                                                if (calls.strikes())
                                                                                    mxStandInFailCreation(1);
                                                                                return create(arguments...);
                                                                            });
    };
}

Lead anyArray()
{
    static const Lead creations[] = {endsIn<"mxCreateDoubleMatrix_730">(mxCreateDoubleMatrix_730),
                                     endsIn<"mxCreateNumericArray_730">(mxCreateNumericArray_730),
                                     endsIn<"mxCreateCharArray_730">(mxCreateCharArray_730),
                                     endsIn<"mxCreateCellArray_730">(mxCreateCellArray_730)};
    return [](NthCall &calls) {
        auto all = std::make_shared<std::vector<std::shared_ptr<void>>>();
        for (const Lead &creation : creations)
            all->push_back(creation(calls));
        return all;
    };
}

Lead createsNothing(HRESULT result)
{
    return [=](NthCall &calls) {
        return std::make_shared<LibraryCall<"CoCreateInstance", decltype(CoCreateInstance)>>(
            CoCreateInstance, [=, &calls](REFCLSID classId, IUnknown *outer, DWORD context, REFIID iid, void **object) {
                if (!calls.strikes())
                    return CoCreateInstance(classId, outer, context, iid, object);
                *object = nullptr;
                return result;
            });
    };
}

const std::string bad = "Unexpected exception: std::bad_alloc";
const std::string unknown = "Unexpected exception: unknown"; // a text that couldn't be narrowed
// A scan that misses a class leaves no name to open it by.
std::vector<std::string> notListed()
{
    std::vector<std::string> texts;
    for (const std::string &name :
         {std::string("Manager"), std::string("Alone"), std::string("Old"), Narrow(UnnamedPackage())})
        texts.push_back("no such package manager: \"" + name + "\"");
    return texts;
}

std::vector<WayToFail> everyWay()
{
    const std::vector<std::string> unlisted = notListed();
    std::vector<std::string> outOfMemory = {bad, unknown, "Out of memory", "out of memory"};
    outOfMemory.insert(outOfMemory.end(), unlisted.begin(), unlisted.end());
    std::vector<WayToFail> ways = {
        {"memory", "Flash", Effect::ends, E_OUTOFMEMORY, outOfMemory, FailsToGetMemory()},
        {"SysAllocString",
         "Flash",
         Effect::ends,
         E_OUTOFMEMORY,
         {bad},
         Gives<"SysAllocString">(SysAllocString, nullptr)},
        {"SafeArrayCreate",
         "Flash",
         Effect::ends,
         E_OUTOFMEMORY,
         {bad},
         Gives<"SafeArrayCreate">(SafeArrayCreate, nullptr)},
        {"SafeArrayCreateVector",
         "Flash",
         Effect::ends,
         E_OUTOFMEMORY,
         {bad},
         Gives<"SafeArrayCreateVector">(SafeArrayCreateVector, nullptr)},
        {"SafeArrayGetElement",
         "CompoundIds",
         Effect::ends,
         E_OUTOFMEMORY,
         {bad, "One or more molecular weights returned by property package are zero or negative"},
         Gives<"SafeArrayGetElement">(SafeArrayGetElement, E_OUTOFMEMORY)},
        {"SafeArrayPutElement",
         "Flash",
         Effect::ends,
         E_OUTOFMEMORY,
         {bad},
         Gives<"SafeArrayPutElement">(SafeArrayPutElement, E_OUTOFMEMORY)},
        {"VariantCopy", "Flash", Effect::ends, E_OUTOFMEMORY, {bad}, Gives<"VariantCopy">(VariantCopy, E_OUTOFMEMORY)},
        {"arrays of MATLAB", "CompoundIds", Effect::ends, S_OK, {"Out of memory."}, anyArray()},
        {"WideCharToMultiByte", "Flash", Effect::ends, static_cast<HRESULT>(0x80070057u), {unknown}, narrowsNothing()},
        {"CLSIDFromString",
         "Create",
         Effect::ends,
         S_OK,
         {"Failed to convert CLSID"},
         Gives<"CLSIDFromString">(CLSIDFromString, CO_E_CLASSSTRING)},
        {"StringFromCLSID",
         "CreateThroughRelay",
         Effect::ends,
         E_OUTOFMEMORY,
         {},
         Gives<"StringFromCLSID">(StringFromCLSID, E_OUTOFMEMORY)},
        {"CoInitializeEx", "ListManagers", Effect::ends, S_OK, {}, entersOtherwise()},
        {"LoadLibraryW",
         "Version",
         Effect::alters,
         S_OK,
         {"Failed to load help file: the library's file is not called Verdanth.mexw64"},
         Gives<"LoadLibraryW">(LoadLibraryW, nullptr)},
        {"LoadLibraryA",
         "Help",
         Effect::shortens,
         S_OK,
         {"Failed to load help file"},
         GivesOrElse<"LoadLibraryA">(LoadLibraryA, nullptr, LoadTestViewer)},
        {"GetProcAddress",
         "Help",
         Effect::shortens,
         S_OK,
         {"Failed to load help file"},
         Gives<"GetProcAddress">(GetProcAddress, nullptr)},
        {"GetModuleFileNameA",
         "Help",
         Effect::alters,
         S_OK,
         {"Failed to load help file"},
         Gives<"GetModuleFileNameA">(GetModuleFileNameA, 0)},
        {"GetModuleFileNameW", "Version", Effect::alters, S_OK, {}, Gives<"GetModuleFileNameW">(GetModuleFileNameW, 0)},
        {"GetFileVersionInfoW",
         "Version",
         Effect::alters,
         S_OK,
         {},
         Gives<"GetFileVersionInfoW">(GetFileVersionInfoW, FALSE)},
        {"VerQueryValueW", "Version", Effect::alters, S_OK, {}, Gives<"VerQueryValueW">(VerQueryValueW, FALSE)},
    };
    for (const HRESULT result : {E_OUTOFMEMORY, REGDB_E_CLASSNOTREG, CO_E_NOTINITIALIZED, E_NOINTERFACE, E_FAIL})
        ways.push_back({"CoCreateInstance", "Create", Effect::ends, result, {}, createsNothing(result)});
    ways.push_back({"CoCreateInstance", "Create", Effect::ends, E_POINTER, {}, createsNothing(S_OK)});
    for (const LSTATUS status : {ERROR_FILE_NOT_FOUND, ERROR_ACCESS_DENIED, ERROR_NOT_ENOUGH_MEMORY, ERROR_MORE_DATA}) {
        ways.push_back({"RegOpenKeyExW", "ListManagers", Effect::shortens, S_OK, unlisted,
                        Gives<"RegOpenKeyExW">(RegOpenKeyExW, status)});
        ways.push_back({"RegQueryValueExW", "ListManagers", Effect::shortens, S_OK, unlisted,
                        Gives<"RegQueryValueExW">(RegQueryValueExW, status)});
        ways.push_back({"RegOpenKeyExA",
                        "Help",
                        Effect::shortens,
                        S_OK,
                        {"Failed to load help file"},
                        GivesOrElse<"RegOpenKeyExA">(RegOpenKeyExA, status, OpenTestViewer)});
        ways.push_back({"RegQueryValueExA",
                        "Help",
                        Effect::shortens,
                        S_OK,
                        {"Failed to load help file"},
                        GivesOrElse<"RegQueryValueExA">(RegQueryValueExA, status, QueryTestViewer)});
    }
    for (const LSTATUS status : {ERROR_ACCESS_DENIED, ERROR_NOT_ENOUGH_MEMORY, ERROR_MORE_DATA, ERROR_NO_MORE_ITEMS})
        ways.push_back({"RegEnumKeyW", "ListManagers", Effect::shortens, S_OK, unlisted,
                        GivesOrElse<"RegEnumKeyW">(RegEnumKeyW, status, EnumerateTestClasses)});
    return ways;
}

} // namespace

const std::vector<WayToFail> &WaysToFail()
{
    static const std::vector<WayToFail> ways = everyWay();
    return ways;
}

} // namespace support
