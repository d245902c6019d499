// Calls that a library makes of the system and that fail when an NthCall says so.
#pragma once

#include "platform/nth_call.h"
#include "tests/mex/support/library_call.h"

#include <memory>
#include <type_traits>

namespace support {

using seam::NthCall;

// While what it gives lives, `calls` says which of the library's calls of one kind fail. The library must be loaded all
// that time.
using Lead = std::function<std::shared_ptr<void>(NthCall &calls)>;

// A function of the system that gives `failure` instead of being called, and `otherwise` in its place where it doesn't
// fail.
template <FunctionName Name, class Result, class... Arguments> Lead
GivesOrElse(Result (*system)(Arguments...), std::type_identity_t<Result> failure, Result (*otherwise)(Arguments...))
{
    return [=](NthCall &calls) {
        return std::make_shared<LibraryCall<Name, Result(Arguments...)>>(system, [=, &calls](Arguments... arguments) {
            return calls.strikes() ? failure : otherwise(arguments...);
        });
    };
}

template <FunctionName Name, class Result, class... Arguments>
Lead Gives(Result (*system)(Arguments...), std::type_identity_t<Result> failure)
{
    return GivesOrElse<Name>(system, failure, system);
}

inline Lead FailsToGetMemory()
{
    return [](NthCall &calls) {
        return std::make_shared<MemoryRefusal>([&calls](std::size_t) { return calls.strikes(); });
    };
}

} // namespace support
