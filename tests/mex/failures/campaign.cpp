#include "tests/mex/failures/campaign.h"

#include "tests/mex/failures/answer.h"
#include "tests/mex/failures/busy_package.h"
#include "tests/mex/failures/failure_words.h"
#include "tests/mex/failures/surroundings.h"
#include "tests/support/failures.h"

#include <algorithm>

namespace support {

namespace {

constexpr int mostCalls = 5000; // of one kind in one command

bool contains(const std::vector<std::string> &texts, const std::string &text)
{
    return std::find(texts.begin(), texts.end(), text) != texts.end();
}

} // namespace

void Campaign::SetUp()
{
    MexTest::SetUp();
    const WideString oldClass = ClassIdText(world.newClassId());
    world.registry().add(In32BitView(PackageClass("Old", oldClass)));
    relay.offer(oldClass, old);
    RegisteredClass unnamed = In32BitView(PackageClass("", UnnamedPackage()));
    unnamed.name.reset();
    world.registry().add(unnamed);
    relay.offer(UnnamedPackage(), old);
    old.componentName = UnnamedPackage(); // by which it goes when it can't tell its name
    const std::pair<PackageScript &, const char *> packages[] = {{inner, "inner"}, {alone, "alone"}, {old, "old"}};
    for (const auto &[package, label] : packages) {
        package.label = label;
        MakeBusyPackage(package);
    }
    manager.persistent = true;
}

void Campaign::failEach(const CommandRow &row, const Failing &failing)
{
    const std::vector<CommandRow> rows = {row};
    if (wholeAnswer.empty())
        wholeAnswer = wholeAnswers(rows);
    int n = 1;
    while (failOnce(rows, wholeAnswer, failing, n) && !HasFailure())
        ASSERT_LT(++n, mostCalls);
    const bool mustStrike = RowOf(failing.command).name == row.name;
    EXPECT_TRUE(n > 1 || !mustStrike) << failing.what << ": nothing was struck";
}

std::vector<std::string> Campaign::wholeAnswers(const std::vector<CommandRow> &rows)
{
    std::vector<std::string> answers;
    load();
    for (const CommandRow &row : rows) {
        prepare(row);
        answers.push_back(Answer(mustReturn(row.outputs, row.arguments(handle))));
    }
    closeAll();
    return answers;
}

bool Campaign::failOnce(const std::vector<CommandRow> &rows, const std::vector<std::string> &whole,
                        const Failing &failing, int n)
{
    SCOPED_TRACE(failing.what + ", call " + std::to_string(n));
    load(failing.replaces);
    if (failing.isWarm) {
        mustReturn(1, {Scalar(1)});
        mustReturn(1, {Scalar(19), Text("volume")});
    }
    NthCall calls;
    bool struck = false;
    for (std::size_t i = 0; i < rows.size(); ++i) {
        const CommandRow &row = rows[i];
        SCOPED_TRACE(row.name);
        prepare(row);
        const std::vector<Array> arguments = row.arguments(handle);
        const std::size_t arrays = mxStandInLiveArrays();
        CallResult result;
        {
            const auto led = failing.lead(calls);
            if (i == 0)
                calls.failAt(n);
            result = call(row.outputs, arguments);
        }
        if (struck || !calls.struck()) {
            EXPECT_EQ(Answer(result), whole[i]);
            continue;
        }
        struck = true;
        judge(row, result, whole[i], failing);
        const bool isClosed = row.is(closes) && result.returned;
        result = CallResult();
        EXPECT_EQ(mxStandInLiveArrays(), arrays) << "arrays are left";
        if (failing.effect == Effect::shortens)
            break;
        if (row.is(opens) || failing.staysWithPackage()) {
            closeAll();
            prepare(row);
        }
        if (!isClosed) {
            EXPECT_EQ(Answer(call(row.outputs, row.arguments(handle))), whole[i]) << "the next time";
        }
    }
    closeAll();
    if (failing.isOfTheLibrary) {
        for (const ComponentScript *script : scripts)
            EXPECT_EQ(noted(*script, ".Initialize"), noted(*script, ".Terminate"))
                << script->label << " is not terminated";
    }
    return struck;
}

std::ptrdiff_t Campaign::noted(const ComponentScript &script, const char *method) const
{
    return std::count(world.log.begin(), world.log.end(), script.label + method);
}

void Campaign::judge(const CommandRow &row, const CallResult &result, const std::string &whole, const Failing &failing)
{
    const std::vector<std::string> texts = failing.texts();
    const auto tellsOf = [&](const std::string &text) { return contains(result.warnings, text); };
    const bool goesOnAndTells = row.is(goesOn) && std::any_of(texts.begin(), texts.end(), tellsOf);
    if (result.returned) {
        if (failing.effect == Effect::ends && !goesOnAndTells) {
            EXPECT_EQ(Answer(result), whole);
        }
        return;
    }
    EXPECT_NE(result.error, "");
    if (result.error == "Property not set after post-flash property calculation" && goesOnAndTells)
        return;
    EXPECT_TRUE(contains(texts, result.error)) << "it ended with: " << result.error;
}

void Campaign::load(const std::string &exceptFor)
{
    handle = Array();
    surroundings.reset();
    matlab.clear();
    world.expectAllReleased();
    world.log.clear();
    matlab.load();
    surroundings = Surround(exceptFor);
}

void Campaign::prepare(const CommandRow &row)
{
    if (row.package && !handle)
        handle = open(row.package);
    if (row.is(inMassBasis))
        useBasis("mass");
}

void Campaign::closeAll()
{
    handle = Array();
    for (const std::int32_t open : mustReturn(1, {Scalar(5)})[0].int32s())
        mustReturn(0, {Scalar(4), Int32(open)});
    for (const ComponentScript *script : scripts)
        EXPECT_EQ(script->references(), 0) << script->label << " is held behind its end";
}

Failing Campaign::ofTheLibrary(const WayToFail &way) const
{
    return {.what = way.name + " with " + CodeText(way.result),
            .command = way.command,
            .replaces = way.name,
            .effect = way.effect,
            .isOfTheLibrary = true,
            .lead = way.lead,
            .texts = [&way] {
                std::vector<std::string> texts = way.words;
                if (SUCCEEDED(way.result))
                    return texts;
                for (const char *beginning : {"creation of package failed: ", "creation of package manager failed: "})
                    for (const HRESULT result : {way.result, E_UNEXPECTED})
                        texts.push_back(beginning + SystemText(result));
                const std::vector<std::string> passedOn = TextsOfFailedCalculation(way.result);
                texts.insert(texts.end(), passedOn.begin(), passedOn.end());
                return texts;
            }};
}

namespace {

// While it lives, the calls of a world's components ask the campaign's NthCall.
struct LedCalls {
    LedCalls(FailingCall &call, NthCall &calls) : failing(call) { failing.which = &calls; }
    ~LedCalls() { failing.which = nullptr; }
    LedCalls(const LedCalls &) = delete;
    LedCalls &operator=(const LedCalls &) = delete;

    FailingCall &failing;
};

} // namespace

Failing Campaign::ofTheComponents(HRESULT result, const ErrorWords &words, const std::string &what)
{
    for (ComponentScript *script : scripts)
        script->words = words;
    world.failingMethod.result = result;
    return {.what = what,
            .command = "Flash",
            .lead = [this](NthCall &calls) { return std::make_shared<LedCalls>(world.failingMethod, calls); },
            .texts = [this, result, words] { return TextsOfFailedMethod(world.failingMethod.method, result, words); },
            .staysWithPackage = [this] { // a package is offered its context and its material only once
                const std::string &method = world.failingMethod.method;
                return method.ends_with(".put_simulationContext") || method.ends_with(".SetMaterial");
            }};
}

Failing Campaign::ofQueryInterface(HRESULT result)
{
    world.failingQuery.result = result;
    return {
        .what = "QueryInterface with " + CodeText(result),
        .command = "CompoundIds",
        .lead = [this](NthCall &calls) { return std::make_shared<LedCalls>(world.failingQuery, calls); },
        .texts = [this,
                  result] { return TextsOfFailedQuery(world.failingQuery.method, world.failingQuery.wanted, result); },
        .staysWithPackage =
            [this] {
                const IID &wanted = world.failingQuery.wanted;
                return wanted == InterfaceId<ICapeUtilities> || wanted == InterfaceId<ICapeThermoMaterialContext>;
            }};
}

} // namespace support
