// A call that a loaded library makes of the system, led to a function of the test: so that a test sees its arguments,
// counts it, or lets it fail, on every platform; where that has 32 bits, what a LibraryCall leads is a function of C's
// library.
#pragma once

#include "platform/platform.h"

#include <algorithm>
#include <cstddef>
#include <functional>
#include <string>
#include <utility>

namespace support {

// The place in the library from where it calls a function. Looked up under the name that import tables have, or by
// the function's address where there are none. The running test fails when the library does not call it.
class ImportSlot {
public:
    using AnyFunction = void (*)();

    ImportSlot(const char *name, AnyFunction system, AnyFunction replacement);
    ImportSlot(AnyFunction *found, AnyFunction replacement); // a row of an object's table of methods, for example
    ~ImportSlot();                                           // leads back; the library must still be loaded
    ImportSlot(const ImportSlot &) = delete;
    ImportSlot &operator=(const ImportSlot &) = delete;

    static bool isThere(const char *name, AnyFunction system) { return find(name, system) != nullptr; }

    // The library whose calls are led, by its name on Windows.
    static inline std::string library = "Verdanth.mexw64";

private:
    static AnyFunction *find(const char *name, AnyFunction system); // null when there is none
    static void write(AnyFunction *slot, AnyFunction function);

    AnyFunction *slot;
    AnyFunction before = nullptr;
};

template <std::size_t Size> struct FunctionName {
    char text[Size];
    constexpr FunctionName(const char (&name)[Size]) { std::copy_n(name, Size, text); }
};

// One at a time for each function. The test's own calls are not led anywhere, and so the body calls the system by
// calling the function.
//     LibraryCall<"GetTickCount", decltype(GetTickCount)> ticks(GetTickCount, [] { return 7u; });
template <FunctionName Name, class Function> class LibraryCall;

template <FunctionName Name, class Result, class... Arguments, bool NoExcept>
class LibraryCall<Name, Result(Arguments...) noexcept(NoExcept)> {
public:
    using Body = std::function<Result(Arguments...)>;

    LibraryCall(Result (*system)(Arguments...), Body replacement)
        : slot(Name.text, reinterpret_cast<ImportSlot::AnyFunction>(system),
               reinterpret_cast<ImportSlot::AnyFunction>(&lead))
    {
        body = std::move(replacement);
    }
    ~LibraryCall() { body = nullptr; }

private:
    static Result lead(Arguments... arguments) { return body(arguments...); }

    static inline Body body;
    ImportSlot slot;
};

// While it lives, a test says which of the library's requests for memory are refused: the requests of operator new in
// all its forms, and of whatever else the compiler's runtime needs where that is part of the library. One at a time.
class MemoryRefusal {
public:
    using Refuses = std::function<bool(std::size_t bytes)>; // is asked once for each request

    explicit MemoryRefusal(Refuses refuses);
    ~MemoryRefusal();
    MemoryRefusal(const MemoryRefusal &) = delete;
    MemoryRefusal &operator=(const MemoryRefusal &) = delete;
};

// While it lives, the library gets no memory for buffers of so many bytes.
class NoMemoryFor {
public:
    explicit NoMemoryFor(std::size_t bytes)
        : refusal([this, bytes](std::size_t wanted) {
              refusals += wanted == bytes;
              return wanted == bytes;
          })
    {
    }

    int refused() const { return refusals; } // requests so far

private:
    int refusals = 0;
    MemoryRefusal refusal;
};

// Counts, from its construction on, the blocks of so many bytes that the library makes with operator new, and all
// blocks that it gives back. Not beside NoMemoryFor.
class LibraryMemory {
public:
    explicit LibraryMemory(std::size_t bytes = 0);
    ~LibraryMemory();
    LibraryMemory(const LibraryMemory &) = delete;
    LibraryMemory &operator=(const LibraryMemory &) = delete;

    int made() const;
    int givenBack() const;
};

} // namespace support
