// The n-th call of some kind fails, for n from 1 until a command passes untouched: it ends with words or with its whole
// answer, leaves nothing behind, and gives its whole answer the next time.
#pragma once

#include "tests/mex/failures/command_rows.h"
#include "tests/mex/failures/ways_to_fail.h"

#include <array>

namespace support {

// What fails in a campaign. Each of its steps begins with the library just loaded.
struct Failing {
    std::string what;
    std::string command;       // a row: it makes such calls
    std::string replaces = {}; // the function of the surroundings that it leads, if it does
    Effect effect = Effect::ends;
    bool isOfTheLibrary = false; // the components do what they are told
    Lead lead = {};
    // Everything that a command may end with by it; empty when it must go on as if nothing had happened. Asked when it
    // has struck.
    std::function<std::vector<std::string>()> texts = {};
    bool isWarm = false; // the registry has been scanned and the vocabulary built: neither is to be struck
    // It stays with the package until that is opened anew. Asked when it has struck.
    std::function<bool()> staysWithPackage = [] { return false; };
};

class Campaign : public MexTest {
protected:
    void SetUp() override;

    // The whole campaign of one command, the only one of the test.
    void failEach(const CommandRow &row, const Failing &failing);

    // One step of it for commands that are called one after the other, each once more if the failure struck it; the
    // last closes the package. `whole` are their answers. False when nothing was struck.
    bool failOnce(const std::vector<CommandRow> &rows, const std::vector<std::string> &whole, const Failing &failing,
                  int n);

    // What the commands answer one after the other when nothing fails.
    std::vector<std::string> wholeAnswers(const std::vector<CommandRow> &rows);

    Failing ofTheLibrary(const WayToFail &way) const;
    Failing ofTheComponents(HRESULT result, const ErrorWords &words, const std::string &what);
    Failing ofQueryInterface(HRESULT result);

    ManagerScript &manager = world.addManager("Manager");
    PackageScript &inner = world.addPackageOf(manager, "Inner");
    PackageScript &alone = world.addPackage("Alone");
    RelayScript &relay = world.addRelay();
    PackageScript &old = world.addUnregisteredPackage(); // made through the relay

private:
    const std::array<ComponentScript *, 4> scripts = {&manager, &inner, &alone, &old};

    void load(const std::string &exceptFor = "");
    void prepare(const CommandRow &row);
    void judge(const CommandRow &row, const CallResult &result, const std::string &whole, const Failing &failing);
    void closeAll();
    std::ptrdiff_t noted(const ComponentScript &script, const char *method) const; // since the library was loaded

    std::vector<std::string> wholeAnswer; // of the one command
    std::shared_ptr<void> surroundings;
};

} // namespace support
