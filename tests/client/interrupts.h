// Ctrl-C, as interrupts.cpp gives it in the place of MATLAB's library.
#pragma once

#include "platform/procedure.h"

#include <gtest/gtest.h>

namespace support {

// Ctrl-C, so many times as it has been asked whether it was pressed.
class Interrupts {
public:
    Interrupts() : library(LoadLibraryW(L"libut.dll"))
    {
        after = findProcedure<void(std::int64_t)>(library, "interruptAfter");
        EXPECT_TRUE(after);
        set(-1);
    }
    ~Interrupts()
    {
        set(-1);
        FreeLibrary(library);
    }
    void set(std::int64_t questions) const
    {
        if (after)
            after(questions);
    }

private:
    HMODULE library;
    void (*after)(std::int64_t) = nullptr;
};

} // namespace support
