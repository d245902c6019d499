#include "fuzz/mex/session.h"

#include "cape/com/bstr.h"
#include "fuzz/input.h"
#include "platform/matlab/mex_export.h"

#include <algorithm>
#include <cstdio>
#include <cstdlib>

extern "C" void mexFunction(int nlhs, mxArray *plhs[], int nrhs, const mxArray *prhs[]);

namespace fuzz {

namespace {

constexpr int mostActions = 300; // in the midst of answers, of one input
constexpr int deepest = 3;       // commands within commands

constexpr HRESULT results[] = {
    S_FALSE,
    E_FAIL,
    E_NOTIMPL,
    E_OUTOFMEMORY,
    static_cast<HRESULT>(0x80040501u),
    static_cast<HRESULT>(0x80040509u),
    static_cast<HRESULT>(0x8004050Bu),
    static_cast<HRESULT>(0x8004051Au),
    static_cast<HRESULT>(0x8004051Bu),
    static_cast<HRESULT>(0x80040500u),
    static_cast<HRESULT>(0x80070005u),
    static_cast<HRESULT>(0xFFFFFFFFu),
};

struct Name {
    LPCWSTR manager;
    LPCWSTR package;
};

const Name &packageName(Input &input)
{
    static constexpr Name packages[] = {{u"Alone", u""}, {u"Second", u""}, {u"Ghost", u""}, {u"Manager", u"First"}};
    return packages[input.chance(48) ? input.below(4) : input.below(2)];
}

constexpr LPCWSTR constraints[] = {u"Temperature", u"Pressure", u"vaporFraction", u"enthalpy", u"volume", u"ENTROPY"};

// In this order: those that calculate most; at the end some that no command has.
constexpr int codes[] = {22, 24, 25, 23, 20, 21, 16, 3,  4, 7, 8,  9,  10, 11, 12,
                         13, 14, 15, 5,  6,  17, 18, 19, 1, 2, 29, -1, 27, 0};

// Set VERDANTH_FUZZ_TELL to be told what an input makes of itself.
const bool tells = std::getenv("VERDANTH_FUZZ_TELL") != nullptr;

// By no function of the library's, which the fuzzer would watch for words to try.
bool isException(const char *error)
{
    for (const char *word = "Unexpected exception"; *word; ++word, ++error)
        if (*error != *word)
            return false;
    return true;
}

// Commands 26 and 28, which an argument in the code's place may name, load what is not there to be fuzzed.
bool isLeftOut(double code) { return (code >= 26 && code < 27) || (code >= 28 && code < 29); }

} // namespace

Session *Session::current = nullptr;

void Session::tell(const char *what, const void *who) const
{
    if (tells)
        std::fprintf(stderr, "%*s%s %p\n", 2 * depth, "", what, who);
}

Session::Session(Input &bytes, MexLeave howErrorsLeave) : input(bytes), leave(howErrorsLeave), actions(mostActions)
{
    current = this;
}

Session::~Session()
{
    current = nullptr;
    kept.clear();
    for (const auto &component : components)
        FUZZ_CHECK(component->references() == 0);
}

HRESULT Session::enter(const char *method, AnyPackage *package)
{
    const unsigned choice = input.byte();
    tell(method, package);
    if (choice >= 160 && choice < 232)
        act(package);
    const HRESULT hr = choice < 216 ? S_OK : input.pick(results);
    if (hr != S_OK && tells)
        std::fprintf(stderr, "%*s%s answers 0x%08X\n", 2 * depth, "", method, static_cast<unsigned>(hr));
    return hr;
}

void Session::act(AnyPackage *package)
{
    for (unsigned times = 1 + input.below(3); times > 0 && actions > 0; --times) {
        --actions;
        const unsigned what = input.byte();
        if (package && what < 160)
            callMaterial(*package);
        else if (package && what < 208)
            useContext(*package);
        else if (what >= 232 && depth < deepest)
            callCommand();
    }
}

void Session::callMaterial(AnyPackage &package)
{
    if (!package.client.material)
        return;
    switch (input.below(8)) {
    case 0:
        return CallRefused(input, package.client);
    case 1: {
        ComPointer<IDispatch> created;
        if (SUCCEEDED(package.client.material->CreateMaterial(created.out())))
            CopyMaterial(package.client, created.get(), nullptr);
        return;
    }
    case 2:
        if (kept.size() < 8) {
            package.client.material->AddRef();
            kept.emplace_back(package.client.material.get());
        }
        return;
    case 3:
        return useKept(package);
    case 4:
        return AskMaterial(input, package.client);
    default:
        return CallMaterial(input, package.client);
    }
}

// What was kept of a package that may be closed by now.
void Session::useKept(const AnyPackage &package)
{
    if (kept.empty())
        return;
    Client client;
    client.package = package.client.package;
    if (SUCCEEDED(client.material.queryFrom(input.pick(kept).get())))
        CallMaterial(input, client);
    if (input.chance(64))
        kept.erase(kept.begin() + input.below(kept.size()));
}

void Session::useContext(AnyPackage &package)
{
    if (!package.context)
        return;
    const Bstr message(PropertyWord(input));
    const unsigned what = input.below(6);
    if (what < 3) {
        ComPointer<ICapeDiagnostic> diagnostic;
        FUZZ_CHECK(diagnostic.queryFrom(package.context.get()) == S_OK);
        FUZZ_CHECK((what < 2 ? diagnostic->LogMessage(message.get()) : diagnostic->PopUpMessage(message.get())) ==
                   S_OK);
    } else if (what == 3) {
        ComPointer<ICapeIdentification> identification;
        FUZZ_CHECK(identification.queryFrom(package.context.get()) == S_OK);
        FUZZ_CHECK(identification->put_ComponentName(message.get()) == static_cast<HRESULT>(0x80040501u));
    } else if (what == 4) {
        AskForWords(package.context.get());
    } else if (kept.size() < 8) {
        package.context->AddRef();
        kept.emplace_back(package.context.get());
    }
}

mxArray *Session::handle()
{
    if (handles.empty() || input.chance(8))
        return input.chance(128) ? Int32Array(input.bits<std::int16_t>()) : AnyArray(input);
    const std::size_t back = input.chance(32) ? input.below(handles.size()) : 0;
    return Int32Array(handles[handles.size() - 1 - back]);
}

mxArray *Session::names(bool ofTwoPhases)
{
    constexpr LPCWSTR twoPhase[] = {u"kvalue", u"surfaceTension", u"logKvalue.DmolFraction", u"kvalue.Dtemperature",
                                    u"surfaceTension.Dmoles"};
    const std::size_t count = 1 + input.below(3);
    std::vector<WideString> words;
    for (std::size_t i = 0; i < count; ++i)
        words.push_back(ofTwoPhases ? Altered(input, input.pick(twoPhase)) : PropertyWord(input));
    if (input.chance(128))
        return TextsArray(words);
    WideString joined;
    for (const WideString &word : words)
        joined += word + u" ";
    return TextArray(joined);
}

mxArray *Session::column(std::size_t rows)
{
    if (input.chance(64))
        rows = 1;
    std::vector<double> numbers;
    for (std::size_t i = 0; i < rows; ++i)
        numbers.push_back(Number(input));
    return NumbersArray(rows, 1, numbers);
}

mxArray *Session::compositions(std::size_t rows)
{
    if (input.chance(64))
        rows = 1;
    const std::size_t compounds = latest ? latest->compounds.size() : 2;
    std::vector<double> numbers;
    for (std::size_t i = 0; i < rows * compounds; ++i)
        numbers.push_back(Number(input));
    return NumbersArray(rows, compounds, numbers);
}

mxArray *Session::label()
{
    static const std::vector<WideString> usual = {u"Vapor", u"Liquid"};
    const MaybeText text = LabelText(input, latest ? latest->labels : usual);
    return text ? TextArray(*text) : AnyArray(input);
}

mxArray *Session::constraint()
{
    return TextArray(input.chance(16) ? PropertyWord(input) : Altered(input, input.pick(constraints)));
}

void Session::addCalculation(Arguments &arguments, int code)
{
    const std::size_t rows = 1 + (input.chance(96) ? input.below(4) : 0);
    if (code < 24) {
        arguments.add(NumberArray(input.chance(64) ? Number(input) : 1.0));
        arguments.add(handle());
        arguments.add(names(code == 23));
        arguments.add(column(rows));
        if (code < 22)
            return;
        arguments.add(column(rows));
        arguments.add(compositions(rows));
        if (code == 23)
            arguments.add(compositions(rows));
        arguments.add(label());
        if (code == 23)
            arguments.add(label());
        return;
    }
    arguments.add(handle());
    arguments.add(compositions(code == 24 ? 1 : rows));
    arguments.add(constraint());
    arguments.add(column(code == 24 ? 1 : rows));
    arguments.add(constraint());
    arguments.add(column(code == 24 ? 1 : rows));
    arguments.add(TextArray(u"Unspecified"));
    if (code == 24)
        return;
    arguments.add(NumberArray(input.chance(64) ? Number(input) : 3.0));
    arguments.add(input.chance(128)
                      ? TextsArray({input.pick(constraints), input.pick(constraints), input.pick(constraints)})
                      : names(false));
}

void Session::addArguments(Arguments &arguments, int code)
{
    constexpr LPCWSTR baseWords[] = {u"mole", u"mass"};
    if (code >= 20 && code <= 25)
        return addCalculation(arguments, code);
    const Name &name = packageName(input);
    switch (code) {
    case 2:
        arguments.add(TextArray(name.manager));
        break;
    case 3:
        arguments.add(TextArray(name.manager));
        arguments.add(TextArray(name.package));
        break;
    case 9:
        arguments.add(handle());
        arguments.add(label());
        break;
    case 16:
        arguments.add(handle());
        arguments.add(TextArray(PropertyWord(input)));
        break;
    case 17:
        arguments.add(NumberArray(input.below(2)));
        break;
    case 18:
        arguments.add(TextArray(input.pick(baseWords)));
        break;
    case 19:
        arguments.add(TextArray(PropertyWord(input)));
        break;
    case 1:
    case 5:
        break;
    default:
        arguments.add(handle());
        break;
    }
}

void Session::spoil(Arguments &arguments)
{
    const unsigned choice = input.byte();
    if (choice < 216)
        return;
    if (choice < 248)
        arguments.replace(input.below(arguments.count()), AnyArray(input));
    else if (choice < 252)
        arguments.add(AnyArray(input));
    else
        arguments.drop();
}

void Session::callCommand()
{
    const unsigned choice = input.byte();
    const int code = choice < 160 ? codes[choice % 5] : codes[choice % std::size(codes)];
    Arguments arguments;
    arguments.add(NumberArray(code));
    addArguments(arguments, code);
    spoil(arguments);
    const int usual = code == 24 ? 5 : code == 4 || code == 17 || code == 18 ? 0 : 1;
    call(input.chance(8) ? static_cast<int>(input.below(8)) : usual, arguments, code);
}

void Session::openPackage()
{
    Arguments arguments;
    arguments.add(NumberArray(3));
    const Name &name = packageName(input);
    arguments.add(TextArray(name.manager));
    arguments.add(TextArray(name.package));
    call(1, arguments, 3);
}

void Session::call(int nlhs, Arguments &arguments, int code)
{
    if (arguments.count() > 0 && isLeftOut(mxGetScalar(arguments.data()[0])))
        return;
    std::vector<mxArray *> outputs(static_cast<std::size_t>(std::max(nlhs, 1)));
    mexStandInClearWarnings();
    if (tells)
        std::fprintf(stderr, "%*scommand %d with %zu arguments, %d results\n", 2 * depth, "", code, arguments.count(),
                     nlhs);
    ++depth;
    const bool returned =
        mexStandInCall(mexFunction, nlhs, outputs.data(), static_cast<int>(arguments.count()), arguments.data(), leave);
    --depth;
    if (!returned) {
        const char *error = mexStandInError();
        if (tells)
            std::fprintf(stderr, "%*s%s\n", 2 * depth, "", error);
        FUZZ_CHECK(*error);
        if (isException(error)) {
            std::fprintf(stderr, "%s\n", error);
            std::abort();
        }
    }
    for (std::size_t i = 0; i < mexStandInWarningCount(); ++i)
        FUZZ_CHECK(*mexStandInWarning(i));
    for (mxArray *output : outputs) {
        FUZZ_CHECK(returned || !output);
        if (output && code == 3 && mxIsInt32(output))
            handles.push_back(*static_cast<std::int32_t *>(mxGetData(output)));
        mxDestroyArray(output);
    }
}

} // namespace fuzz
