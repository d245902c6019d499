#include "fuzz/calculation/play.h"

#include "fuzz/input.h"
#include "gateway/state/narrow_text.h"

#include <cstdio>
#include <cstdlib>
#include <cstring>

extern "C" void mexFunction(int nlhs, mxArray *plhs[], int nrhs, const mxArray *prhs[]);

namespace fuzz {

namespace {

// What a script passes holds no null character here: how a text with one is cut is no matter of calculations.
WideString plain(const WideString &text) { return text.substr(0, text.find(WCHAR{0})); }

std::vector<WideString> split(const WideString &text)
{
    std::vector<WideString> tokens;
    WideString token;
    for (const WCHAR c : text + u" ") {
        if (c != u' ') {
            token += c;
        } else if (!token.empty()) {
            tokens.push_back(token);
            token.clear();
        }
    }
    return tokens;
}

void expectText(const char *said, const WideString &expected)
{
    const NarrowText narrow(expected.c_str());
    if (std::strcmp(said, narrow.get()) == 0)
        return;
    std::fprintf(stderr, "said: %s\nexpected: %s\n", said, narrow.get());
    std::abort();
}

mxArray *arrayOf(const model::Matrix &matrix)
{
    if (matrix.isDouble)
        return NumbersArray(matrix.rows, matrix.columns, matrix.values);
    const mwSize dimensions[] = {matrix.rows, matrix.columns};
    return mxCreateNumericArray_730(2, dimensions, mxSINGLE_CLASS, mxREAL);
}

void expectMatrix(const mxArray *array, const model::Matrix &expected)
{
    FUZZ_CHECK(array && mxIsDouble(array) && !mxIsComplex(array));
    FUZZ_CHECK(mxGetM(array) == expected.rows && mxGetN(array) == expected.columns);
    const std::size_t count = expected.rows * expected.columns;
    const double *numbers = mxGetPr(array);
    for (std::size_t i = 0; i < count; ++i) {
        if (model::Close(numbers[i], expected.values[i]))
            continue;
        std::fprintf(stderr, "element %zu said: %.17g\nexpected: %.17g\n", i, numbers[i], expected.values[i]);
        std::abort();
    }
}

} // namespace

Play::Play(Input &bytes, CalculationPackage &itsPackage) : input(bytes), package(itsPackage)
{
    package.client.expected = std::make_shared<model::Material>(package.contents);
    Arguments arguments;
    arguments.add(NumberArray(3));
    arguments.add(TextArray(u"Alone"));
    arguments.add(TextArray(u""));
    FUZZ_CHECK(call(1, arguments));
    handle = *static_cast<std::int32_t *>(mxGetData(outputs[0]));
    mxDestroyArray(outputs[0]);
}

void Play::step()
{
    const unsigned choice = input.byte();
    if (choice < 240)
        return calculate(22 + static_cast<int>(choice % 4));
    if (choice < 252)
        return setBasis(choice % 2 == 0);
    setWarnings(choice % 2 == 0);
}

void Play::setBasis(bool perMass)
{
    settings.perMass = perMass;
    Arguments arguments;
    arguments.add(NumberArray(18));
    arguments.add(TextArray(perMass ? u"mass" : u"mole"));
    FUZZ_CHECK(call(0, arguments));
    mxDestroyArray(outputs[0]);
}

void Play::setWarnings(bool shown)
{
    settings.showsWarnings = shown;
    Arguments arguments;
    arguments.add(NumberArray(17));
    arguments.add(NumberArray(shown ? 1 : 0));
    FUZZ_CHECK(call(0, arguments));
    mxDestroyArray(outputs[0]);
}

bool Play::call(int nlhs, Arguments &arguments)
{
    outputs.assign(nlhs > 1 ? static_cast<std::size_t>(nlhs) : 1, nullptr);
    mexStandInClearWarnings();
    return mexStandInCall(mexFunction, nlhs, outputs.data(), static_cast<int>(arguments.count()), arguments.data(),
                          input.chance(128) ? mexLEAVE_JUMP : mexLEAVE_UNWIND);
}

model::Matrix Play::matrix(std::size_t rows, std::size_t columns)
{
    model::Matrix made;
    const unsigned shape = input.byte(); // right, mostly
    made.rows = shape < 48 ? 1 : shape < 248 ? rows : shape < 252 ? rows + 1 : 0;
    made.columns = shape % 64 == 47 ? columns + 1 : columns;
    made.isDouble = shape % 64 != 46;
    const bool anyWill = input.chance(32);
    for (std::size_t i = 0; i < made.rows * made.columns; ++i)
        made.values.push_back(anyWill ? Number(input) : PlainNumber(input));
    return made;
}

WideString Play::label() { return plain(LabelText(input, package.contents.labels).value_or(u"Vapor")); }

WideString Play::constraint()
{
    constexpr LPCWSTR usual[] = {u"Temperature", u"Pressure", u"vaporFraction", u"enthalpy",
                                 u"volume",      u"Entropy",  u"PRESSURE"};
    return plain(input.chance(8) ? PropertyWord(input) : Altered(input, input.pick(usual)));
}

void Play::names(int code, std::vector<WideString> &tokens)
{
    constexpr LPCWSTR singlePhase[] = {u"enthalpy",
                                       u"volume",
                                       u"density",
                                       u"viscosity",
                                       u"fugacityCoefficient",
                                       u"Entropy",
                                       u"enthalpy.DmolFraction",
                                       u"density.DmolFraction",
                                       u"volume.Dtemperature",
                                       u"enthalpy.Dmoles",
                                       u"diffusionCoefficient",
                                       u"fugacity.DmolFraction",
                                       u"compressibilityFactor",
                                       u"density.Dpressure",
                                       u"activity.Dmoles"};
    constexpr LPCWSTR twoPhase[] = {u"kvalue",
                                    u"surfaceTension",
                                    u"logKvalue",
                                    u"kvalue.DmolFraction",
                                    u"surfaceTension.DmolFraction",
                                    u"SurfaceTension.Dmoles",
                                    u"kvalue.Dtemperature"};
    constexpr LPCWSTR ofRow[] = {u"Temperature", u"Pressure",    u"vaporFraction",  u"enthalpy", u"volume",
                                 u"entropy",     u"gibbsEnergy", u"internalEnergy", u"Enthalpy", u"VaporFraction"};
    for (unsigned i = 1 + input.below(4); i > 0; --i) {
        WideString word;
        if (input.chance(6))
            word = PropertyWord(input);
        else if (code == 22)
            word = input.pick(singlePhase);
        else if (code == 23)
            word = input.pick(twoPhase);
        else
            word = input.pick(ofRow);
        for (const WideString &token : split(plain(word)))
            tokens.push_back(token);
    }
}

model::Request Play::request(int code)
{
    const std::size_t nC = package.contents.compounds.size();
    const std::size_t rows = 1 + input.below(4);
    model::Request made;
    made.code = code;
    if (code != 24) {
        names(code, made.names);
        made.outputs = input.chance(48) ? input.below(6) : static_cast<std::uint32_t>(made.names.size());
    }
    if (code < 24) {
        made.temperatures = matrix(rows, 1);
        made.pressures = matrix(rows, 1);
        made.compositions = matrix(rows, nC);
        made.label = label();
        if (code == 23) {
            made.compositions2 = matrix(rows, nC);
            made.label2 = label();
        }
        return made;
    }
    made.compositions = matrix(code == 24 ? 1 : rows, nC);
    made.property1 = constraint();
    made.values1 = matrix(code == 24 ? 1 : rows, 1);
    made.property2 = constraint();
    made.values2 = matrix(code == 24 ? 1 : rows, 1);
    made.solutionType = input.chance(16) ? plain(PropertyWord(input)) : WideString(u"Unspecified");
    return made;
}

void Play::calculate(int code)
{
    const model::Request asked = request(code);
    Arguments arguments;
    arguments.add(NumberArray(code));
    if (code < 24) {
        arguments.add(NumberArray(asked.outputs));
        arguments.add(Int32Array(handle));
        arguments.add(TextsArray(asked.names));
        arguments.add(arrayOf(asked.temperatures));
        arguments.add(arrayOf(asked.pressures));
        arguments.add(arrayOf(asked.compositions));
        if (code == 23)
            arguments.add(arrayOf(asked.compositions2));
        arguments.add(TextArray(asked.label));
        if (code == 23)
            arguments.add(TextArray(asked.label2));
    } else {
        arguments.add(Int32Array(handle));
        arguments.add(arrayOf(asked.compositions));
        arguments.add(TextArray(asked.property1));
        arguments.add(arrayOf(asked.values1));
        arguments.add(TextArray(asked.property2));
        arguments.add(arrayOf(asked.values2));
        arguments.add(TextArray(asked.solutionType));
        if (code == 25) {
            arguments.add(NumberArray(asked.outputs));
            arguments.add(TextsArray(asked.names));
        }
    }
    model::Command command(*package.client.expected, settings, asked);
    package.command = &command;
    const bool returned = call(code == 24 ? 5 : 1, arguments);
    package.command = nullptr;
    expect(command, returned);
    for (mxArray *output : outputs)
        mxDestroyArray(output);
}

void Play::expect(const model::Command &command, bool returned)
{
    FUZZ_CHECK(command.isOver());
    FUZZ_CHECK(mexStandInWarningCount() == command.warnings.size());
    for (std::size_t i = 0; i < command.warnings.size(); ++i)
        expectText(mexStandInWarning(i), command.warnings[i]);
    if (!returned || !command.error.empty())
        return expectText(returned ? "nothing, it returned" : mexStandInError(), command.error);
    if (outputs.size() == 5)
        expectFlash(command);
    else
        expectCells(command);
}

void Play::expectCells(const model::Command &command)
{
    const mxArray *cell = outputs[0];
    FUZZ_CHECK(cell && mxIsCell(cell) && mxGetM(cell) == command.cells.size());
    for (std::size_t i = 0; i < command.cells.size(); ++i) {
        const std::vector<model::Matrix> &parts = command.cells[i];
        const mxArray *result = mxGetCell_730(cell, i);
        if (parts.size() == 1) {
            expectMatrix(result, parts[0]);
            continue;
        }
        FUZZ_CHECK(result && mxIsCell(result) && mxGetM(result) == 1 && mxGetN(result) == parts.size());
        for (std::size_t part = 0; part < parts.size(); ++part)
            expectMatrix(mxGetCell_730(result, part), parts[part]);
    }
}

void Play::expectFlash(const model::Command &command)
{
    FUZZ_CHECK(mxIsCell(outputs[0]) && mxGetM(outputs[0]) == command.labels.size());
    for (std::size_t r = 0; r < command.labels.size(); ++r) {
        const mxArray *text = mxGetCell_730(outputs[0], r);
        const WideString &expected = command.labels[r];
        FUZZ_CHECK(text && mxIsChar(text) && mxGetM(text) == 1 && mxGetN(text) == expected.size());
        FUZZ_CHECK(expected.empty() || WideString(mxGetChars(text), expected.size()) == expected);
    }
    expectMatrix(outputs[1], command.fractions);
    expectMatrix(outputs[2], command.compositions);
    expectMatrix(outputs[3], {1, 1, {command.temperature}, true});
    expectMatrix(outputs[4], {1, 1, {command.pressure}, true});
}

} // namespace fuzz
