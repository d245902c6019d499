// Calls that the library makes of managers, packages and the relay.
#include "tests/mex/failures/campaign.h"
#include "tests/mex/failures/failure_words.h"

using namespace support;

namespace {

class EachComponentCall : public Campaign, public testing::WithParamInterface<CommandRow> {};
class ComponentCalls : public Campaign {};

} // namespace

TEST_P(EachComponentCall, Fails)
{
    failEach(GetParam(), ofTheComponents(oddFailure, {}, "a failure without words anywhere"));
    failEach(GetParam(), ofTheComponents(oddFailure, Description("not asked for"), "a failure of no standard"));
    failEach(GetParam(), ofTheComponents(E_OUTOFMEMORY, {}, "no memory"));
    failEach(GetParam(), ofTheComponents(E_NOTIMPL, {}, "not implemented"));
    failEach(GetParam(), ofTheComponents(computationFailed, {}, "a failure of the standard"));
    failEach(GetParam(), ofTheComponents(computationFailed, Description("so it is"), "a failure with a description"));
    failEach(GetParam(), ofTheComponents(computationFailed, ErrorName("Misfortune"), "a failure with a name"));
    failEach(GetParam(), ofTheComponents(S_FALSE, {}, "S_FALSE"));
}

TEST_P(EachComponentCall, OfQueryInterfaceFails)
{
    for (const HRESULT result : {E_NOINTERFACE, E_OUTOFMEMORY, E_FAIL, S_OK, S_FALSE})
        failEach(GetParam(), ofQueryInterface(result));
}

TEST_F(ComponentCalls, OfTheCommandsAreAllThatThereAreWordsFor)
{
    std::vector<std::string> calls;
    for (const CommandRow &row : CommandRows()) {
        wholeAnswers({row});
        calls.insert(calls.end(), world.log.begin(), world.log.end());
    }
    EXPECT_EQ(MethodsOfNone(calls), std::vector<std::string>());
}

INSTANTIATE_TEST_SUITE_P(OfCommand, EachComponentCall, testing::ValuesIn(CommandRows()), NameOfRow);
