// The n-th call that the relay makes of the system fails, for n from 1 until an operation passes untouched.
#pragma once

#include "tests/mex/support/failing_call.h"
#include "tests/relay/relay_room.h"

#include <gtest/gtest.h>

#include <memory>
#include <string>
#include <vector>

namespace room_failures {

using seam::NthCall;
using support::FunctionName;
using support::ImportSlot;
using support::Lead;

// How one kind of call fails, and what an operation then comes to.
struct Way {
    std::string name;
    Lead lead;
    HRESULT result;
};

bool isCodeOfRoom(const void *address);

// What a function of the system, or a method, is led to.
template <FunctionName Name, class Result, class... Arguments> struct Striking {
    using Function = Result(WINAPI *)(Arguments...);

    static Result WINAPI call(Arguments... arguments)
    {
        // The system calls methods of its own, too.
        if (!isCodeOfRoom(__builtin_return_address(0)) || !calls->strikes())
            return system(arguments...);
        SetLastError(ERROR_NOT_ENOUGH_MEMORY);
        return failure;
    }

    static inline Function system = nullptr;
    static inline Result failure = {};
    static inline NthCall *calls = nullptr;
};

// The function `system` stands for the one of that name.
template <FunctionName Name, class Result, class... Arguments>
Way gives(Result(WINAPI *system)(Arguments...), std::type_identity_t<Result> failure, HRESULT result)
{
    using Call = Striking<Name, Result, Arguments...>;
    const auto lead = [=](NthCall &calls) {
        Call::system = system;
        Call::failure = failure;
        Call::calls = &calls;
        return std::make_shared<ImportSlot>(Name.text, reinterpret_cast<ImportSlot::AnyFunction>(system),
                                            reinterpret_cast<ImportSlot::AnyFunction>(&Call::call));
    };
    return {Name.text, lead, result};
}

// A method of all the objects that share this one's table.
template <FunctionName Name, class Interface, class... Arguments>
Way methodGives(HRESULT (WINAPI Interface::*)(Arguments...), Interface *object, std::size_t row, HRESULT failure)
{
    using Call = Striking<Name, HRESULT, Interface *, Arguments...>;
    auto *place = *reinterpret_cast<ImportSlot::AnyFunction **>(object) + row;
    const auto lead = [=](NthCall &calls) {
        Call::system = reinterpret_cast<typename Call::Function>(*place);
        Call::failure = failure;
        Call::calls = &calls;
        return std::make_shared<ImportSlot>(place, reinterpret_cast<ImportSlot::AnyFunction>(&Call::call));
    };
    return {Name.text, lead, failure};
}

Way memory();
std::vector<Way> together(std::initializer_list<std::vector<Way>> parts);

// Ends the process, with the words on what hangs, unless it is over in time.
class Deadline {
public:
    Deadline(std::string what, DWORD milliseconds);
    ~Deadline();
    Deadline(const Deadline &) = delete;
    Deadline &operator=(const Deadline &) = delete;

private:
    static void CALLBACK pass(void *self, BOOLEAN);

    std::string what;
    HANDLE timer = nullptr;
};

// A relay that nothing has been asked of: a copy of the room, which stays loaded, for its threads never end.
class RoomCallFails : public testing::Test {
protected:
    RoomCallFails();
    ~RoomCallFails() override;

    struct Operation {
        std::function<HRESULT()> run;
        std::function<void()> expectDone = [] {};
        std::function<void()> undo = [] {}; // succeeds after a failure, too, and leaves no trace of it
        std::function<void()> expectFailed = [] {};
    };

    // Each kind of call has to be made, and its failure to be told.
    void failEach(const Operation &operation, const std::vector<Way> &ways);

    // The n-th call fails; false when it makes fewer.
    bool runStruck(const Operation &operation, const Way &way, int n);

    const RelayRoom *room = nullptr;

private:
    Deadline deadline{testing::UnitTest::GetInstance()->current_test_info()->name(), 90'000};
    std::vector<std::unique_ptr<ImportSlot>> observed;
};

// The keys that the relay has open.
inline int openKeys = 0;
LSTATUS WINAPI openKey(HKEY parent, LPCWSTR path, DWORD options, REGSAM access, PHKEY key);
LSTATUS WINAPI createKey(HKEY parent, LPCWSTR path, DWORD reserved, LPWSTR type, DWORD options, REGSAM access,
                         LPSECURITY_ATTRIBUTES security, PHKEY key, LPDWORD disposition);

// A file in the folder where the relay finds itself, a temporary one.
WideString installedFile(LPCWSTR name);
// Copies a file of the build there, and gives its path. What lies there from before is not written over but removed: it
// may be the same file as in another run of the tests, and in use.
WideString install(LPCWSTR name, LPCWSTR newName);
DWORD WINAPI programFile(HMODULE, LPWSTR path, DWORD size);

} // namespace room_failures
