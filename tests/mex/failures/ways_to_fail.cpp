#include "tests/mex/failures/ways_to_fail.h"

#include "platform/matlab/standin.h"
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
const std::string notListed[] = {"no such package manager: \"Manager\"", "no such package manager: \"Alone\"",
                                 "no such package manager: \"Old\""};

std::vector<WayToFail> everyWay()
{
    const std::vector<std::string> outOfMemory = {bad,          unknown,      "Out of memory", "out of memory",
                                                  notListed[0], notListed[1], notListed[2]};
    std::vector<WayToFail> ways = {
        {"memory", Effect::ends, E_OUTOFMEMORY, outOfMemory, FailsToGetMemory()},
        {"SysAllocString", Effect::ends, E_OUTOFMEMORY, {bad}, Gives<"SysAllocString">(SysAllocString, nullptr)},
        {"SafeArrayCreate", Effect::ends, E_OUTOFMEMORY, {bad}, Gives<"SafeArrayCreate">(SafeArrayCreate, nullptr)},
        {"SafeArrayCreateVector",
         Effect::ends,
         E_OUTOFMEMORY,
         {bad},
         Gives<"SafeArrayCreateVector">(SafeArrayCreateVector, nullptr)},
        {"SafeArrayGetElement",
         Effect::ends,
         E_OUTOFMEMORY,
         {bad, "One or more molecular weights returned by property package are zero or negative"},
         Gives<"SafeArrayGetElement">(SafeArrayGetElement, E_OUTOFMEMORY)},
        {"SafeArrayPutElement",
         Effect::ends,
         E_OUTOFMEMORY,
         {bad},
         Gives<"SafeArrayPutElement">(SafeArrayPutElement, E_OUTOFMEMORY)},
        {"VariantCopy", Effect::ends, E_OUTOFMEMORY, {bad}, Gives<"VariantCopy">(VariantCopy, E_OUTOFMEMORY)},
        {"arrays of MATLAB", Effect::ends, S_OK, {"Out of memory."}, anyArray()},
        {"WideCharToMultiByte", Effect::ends, static_cast<HRESULT>(0x80070057u), {unknown}, narrowsNothing()},
        {"CLSIDFromString",
         Effect::ends,
         S_OK,
         {"Failed to convert CLSID"},
         Gives<"CLSIDFromString">(CLSIDFromString, CO_E_CLASSSTRING)},
        {"StringFromCLSID", Effect::ends, E_OUTOFMEMORY, {}, Gives<"StringFromCLSID">(StringFromCLSID, E_OUTOFMEMORY)},
        {"CoInitializeEx", Effect::ends, S_OK, {}, entersOtherwise()},
        {"LoadLibraryW",
         Effect::alters,
         S_OK,
         {"Failed to load help file: the library's file is not called Verdanth.mexw64"},
         Gives<"LoadLibraryW">(LoadLibraryW, nullptr)},
        {"LoadLibraryA",
         Effect::shortens,
         S_OK,
         {"Failed to load help file"},
         GivesOrElse<"LoadLibraryA">(LoadLibraryA, nullptr, LoadTestViewer)},
        {"GetProcAddress",
         Effect::shortens,
         S_OK,
         {"Failed to load help file"},
         Gives<"GetProcAddress">(GetProcAddress, nullptr)},
        {"GetModuleFileNameA",
         Effect::alters,
         S_OK,
         {"Failed to load help file"},
         Gives<"GetModuleFileNameA">(GetModuleFileNameA, 0)},
        {"GetModuleFileNameW", Effect::alters, S_OK, {}, Gives<"GetModuleFileNameW">(GetModuleFileNameW, 0)},
        {"GetFileVersionInfoW", Effect::alters, S_OK, {}, Gives<"GetFileVersionInfoW">(GetFileVersionInfoW, FALSE)},
        {"VerQueryValueW", Effect::alters, S_OK, {}, Gives<"VerQueryValueW">(VerQueryValueW, FALSE)},
    };
    for (const HRESULT result : {E_OUTOFMEMORY, REGDB_E_CLASSNOTREG, CO_E_NOTINITIALIZED, E_NOINTERFACE, E_FAIL})
        ways.push_back({"CoCreateInstance", Effect::ends, result, {}, createsNothing(result)});
    ways.push_back({"CoCreateInstance", Effect::ends, E_POINTER, {}, createsNothing(S_OK)});
    const std::vector<std::string> unlisted(std::begin(notListed), std::end(notListed));
    for (const LSTATUS status : {ERROR_FILE_NOT_FOUND, ERROR_ACCESS_DENIED, ERROR_NOT_ENOUGH_MEMORY, ERROR_MORE_DATA}) {
        ways.push_back(
            {"RegOpenKeyExW", Effect::shortens, S_OK, unlisted, Gives<"RegOpenKeyExW">(RegOpenKeyExW, status)});
        ways.push_back({"RegQueryValueExW", Effect::shortens, S_OK, unlisted,
                        Gives<"RegQueryValueExW">(RegQueryValueExW, status)});
        ways.push_back({"RegOpenKeyExA",
                        Effect::shortens,
                        S_OK,
                        {"Failed to load help file"},
                        Gives<"RegOpenKeyExA">(RegOpenKeyExA, status)});
        ways.push_back({"RegQueryValueExA",
                        Effect::shortens,
                        S_OK,
                        {"Failed to load help file"},
                        Gives<"RegQueryValueExA">(RegQueryValueExA, status)});
    }
    for (const LSTATUS status : {ERROR_ACCESS_DENIED, ERROR_NOT_ENOUGH_MEMORY, ERROR_MORE_DATA, ERROR_NO_MORE_ITEMS})
        ways.push_back({"RegEnumKeyW", Effect::shortens, S_OK, unlisted,
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
