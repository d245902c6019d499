// The client in a folder of a test's own, with what the test puts beside it.
#pragma once

#include "platform/procedure.h"
#include "tests/client/client_test.h"

#include <filesystem>
#include <type_traits>

namespace support {

namespace fs = std::filesystem;

class ClientFolder : public ClientTest {
protected:
    void SetUp() override
    {
        ClientTest::SetUp();
        fs::remove_all(root);
    }
    void TearDown() override
    {
        ClientTest::TearDown();
        fs::remove_all(root);
    }

    void put(const char *file, const fs::path &folder, const char *name = nullptr) const
    {
        const fs::path target = root / folder / (name ? name : file);
        fs::create_directories(root / folder);
        fs::remove(target);
        fs::copy(built / file, target);
    }

    // Loaded from a folder, until the end of the object.
    class Client {
    public:
        explicit Client(const fs::path &folder) : module(LoadLibraryW((folder / "VerdanthClient.mexw64").c_str()))
        {
            function = findProcedure<std::remove_pointer_t<MexFunction>>(module, "mexFunction");
        }
        Client(const Client &) = delete;
        Client &operator=(const Client &) = delete;
        ~Client()
        {
            mexStandInRunExit();
            FreeLibrary(module);
        }
        CallResult call(const std::vector<Array> &arguments) const
        {
            if (function)
                return host::Call(function, 1, arguments, LeaveOfThisRun());
            CallResult none;
            none.error = "not loaded";
            return none;
        }

    private:
        HMODULE module;
        MexFunction function;
    };

    const fs::path built = FolderOfTests();
    const fs::path root = built / L"client \u00E4 test";
};

} // namespace support
