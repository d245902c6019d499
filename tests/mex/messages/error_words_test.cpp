// The words for a failed call: the package's own, the standard's, the system's.
#include "tests/mex/support/library_call.h"
#include "tests/support/package_test.h"

using namespace support;

namespace {

using FormatCall = LibraryCall<"FormatMessageW", DWORD(DWORD, LPCVOID, DWORD, DWORD, LPWSTR, DWORD, char **)>;

class ErrorWordsOfACall : public PackageTest {
protected:
    const std::string prefix = "GetConstPropList failed: ";

    void SetUp() override
    {
        PackageTest::SetUp();
        mustReturn(1, {Scalar(7), handle}); // the compounds are there when the list is asked for
    }

    // The words behind the prefix when the package answers so.
    std::string wordsFor(HRESULT failure)
    {
        package.answer("GetConstPropList", failure);
        const std::string text = refusal(1, {Scalar(10), handle});
        EXPECT_TRUE(text.starts_with(prefix)) << text;
        return text.substr(std::min(prefix.size(), text.size()));
    }

    // The words for a failure for which the system says this.
    std::string wordsWhenTheSystemSays(AnyText message)
    {
        FormatCall says(FormatMessageW,
                        [&](DWORD flags, LPCVOID source, DWORD id, DWORD language, LPWSTR target, DWORD size,
                            auto arguments) -> DWORD {
                            if (flags == 0x2400) // from a string, with arguments
                                return FormatMessageW(flags, source, id, language, target, size, arguments);
                            EXPECT_EQ(flags, 0x1200u) << "of the system, with its inserts left alone";
                            EXPECT_EQ(source, nullptr);
                            EXPECT_EQ(id, static_cast<DWORD>(E_FAIL));
                            EXPECT_EQ(language, 0x400u);
                            EXPECT_EQ(size, 1024u);
                            std::copy_n(message.wide.c_str(), message.wide.size() + 1, target);
                            return static_cast<DWORD>(message.wide.size());
                        });
        return wordsFor(E_FAIL);
    }
};

} // namespace

TEST_F(ErrorWordsOfACall, AreTheStandardsForEveryResultOfItsBlock)
{
    const char *const texts[] = {
        "Failed to get error name for ECapeUnknown",
        "invalid data",
        "license problem",
        "Bad Cape-Open parameter",
        "Bad argument",
        "Invalid argument",
        "index out of bounds",
        "current implementation related error",
        "not implemented",
        "implementation is limited",
        "computation error",
        "out of resources",
        "out of memory",
        "operation was timed out",
        "initialization error",
        "solution error",
        "invalid order of invocations",
        "invalid operation",
        "storage / persistence error",
        "illegal access",
        "persistence error: not found",
        "persistence system error",
        "persistence overflow error",
        "solver scope error",
        "Hessian information not available",
        "One or more of the requested thermodynamic properties are not set on the material",
    };
    ASSERT_EQ(std::size(texts), 0x1Au);
    for (unsigned n = 1; n <= std::size(texts); ++n)
        EXPECT_EQ(wordsFor(CapeFailure(n)), texts[n - 1]) << n;
    EXPECT_EQ(wordsFor(CapeFailure(0x1B)), SystemText(CapeFailure(0x1B)));
    EXPECT_EQ(wordsFor(CapeFailure(0x00)), SystemText(CapeFailure(0x00)));
}

TEST_F(ErrorWordsOfACall, AreTheDescriptionThenTheNameThenTheStandards)
{
    package.words = Description("the description");
    package.words.root = true;
    package.words.name = Wide("TheName");
    world.log.clear();
    EXPECT_EQ(wordsFor(computationFailed), "the description");
    EXPECT_EQ(world.log, (CallLog{"package.GetConstPropList", "package.get_description"}));
    for (const std::optional<WideString> &none : {std::optional(WideString()), std::optional<WideString>()}) {
        package.words.description = none;
        package.words.name = Wide("TheName");
        world.log.clear();
        EXPECT_EQ(wordsFor(computationFailed), "TheName");
        EXPECT_EQ(world.log, (CallLog{"package.GetConstPropList", "package.get_description", "package.get_name"}));
        package.words.name = none;
        EXPECT_EQ(wordsFor(computationFailed), "computation error");
    }
    EXPECT_EQ(package.references(), 2) << "the package and its compounds";
}

TEST_F(ErrorWordsOfACall, CountAlsoWhenAskingForThemFails)
{
    package.answer("get_description", E_FAIL);
    package.answer("get_name", E_FAIL);
    package.words = Description("the description");
    EXPECT_EQ(wordsFor(computationFailed), "the description");
    package.words = ErrorName("TheName");
    EXPECT_EQ(wordsFor(computationFailed), "TheName");
    EXPECT_EQ(package.references(), 2) << "the package and its compounds";
}

TEST_F(ErrorWordsOfACall, AreNotAskedOfThePackageForAResultOfAnotherKind)
{
    package.words = Description("not asked for");
    for (const HRESULT other : {E_ACCESSDENIED, CapeFailure(0x00), CapeFailure(0x1B), oddFailure}) {
        world.log.clear();
        EXPECT_EQ(wordsFor(other), SystemText(other));
        EXPECT_EQ(world.log, CallLog{"package.GetConstPropList"});
    }
    EXPECT_EQ(wordsFor(oddFailure), oddFailureText);
}

TEST_F(ErrorWordsOfACall, OfTheSystemLoseOneLineEnd)
{
    EXPECT_EQ(wordsWhenTheSystemSays("Said.\r\n"), "Said.");
    EXPECT_EQ(wordsWhenTheSystemSays("Said.\n"), "Said.");
    EXPECT_EQ(wordsWhenTheSystemSays("Said.\r\n\r\n"), "Said.\r\n");
    EXPECT_EQ(wordsWhenTheSystemSays("Said.\n\n"), "Said.\n");
    EXPECT_EQ(wordsWhenTheSystemSays("Said.\r\r\n"), "Said.\r");
    EXPECT_EQ(wordsWhenTheSystemSays("Said.\r"), "Said.\r");
    EXPECT_EQ(wordsWhenTheSystemSays(" 100%1 "), " 100%1 ");
}

TEST_F(ErrorWordsOfACall, AreTheNumberWhenTheSystemSaysNothing)
{
    EXPECT_EQ(wordsWhenTheSystemSays(""), "error code 0x80004005");
}

TEST_F(ErrorWordsOfACall, AreTheStandInForNoneWhenTheSystemSaysALineEndOnly)
{
    EXPECT_EQ(wordsWhenTheSystemSays("\r\n"), "<unknown error>");
    EXPECT_EQ(wordsWhenTheSystemSays("\n"), "<unknown error>");
    FormatCall silent(FormatMessageW, [](DWORD, LPCVOID, DWORD, DWORD, LPWSTR, DWORD, auto) { return DWORD(0); });
    EXPECT_EQ(wordsFor(E_FAIL), "<unknown error>");
}

TEST_F(ErrorWordsOfACall, AreOutOfMemoryWhenThereIsNoneForTheSystems)
{
    const NoMemoryFor text(1024 * sizeof(WCHAR));
    EXPECT_EQ(wordsFor(E_FAIL), "<out of memory>");
    EXPECT_EQ(wordsFor(computationFailed), "computation error");
    EXPECT_EQ(text.refused(), 1);
}
