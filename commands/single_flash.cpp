// Command 24: one phase equilibrium.
#include "cape/com/component_call.h"
#include "cape/error_text.h"
#include "commands/calculation_commands.h"
#include "commands/command_scratch.h"
#include "commands/flash_constraint.h"
#include "commands/flash_results.h"
#include "gateway/call/failure_text.h"
#include "gateway/call/marshalling.h"
#include "gateway/state/global_lists.h"
#include "gateway/state/settings.h"

#include <algorithm>

namespace {

struct ValueMessages {
    const char *wrongCount;
    const char *notDouble;
};

Verdict checkValues(const mxArray *argument, std::size_t count, const ValueMessages &messages)
{
    if (mxGetNumberOfElements(argument) != count)
        return Verdict::refuse(messages.wrongCount);
    return IsRealDouble(argument) ? Verdict::done() : Verdict::refuse(messages.notDouble);
}

Verdict checkArguments(const mxArray *const *arguments, std::int32_t compounds)
{
    if (Verdict verdict = checkValues(arguments[2], static_cast<std::size_t>(compounds),
                                      {"Invalid number of values for compositions: must match number of compounds",
                                       "Expected double precision values for compositions"});
        !verdict.isDone())
        return verdict;
    if (Verdict verdict = checkValues(
            arguments[4], 1,
            {"Invalid number of values for value 1: scalar expected", "Expected double precision value for value 1"});
        !verdict.isDone())
        return verdict;
    return checkValues(
        arguments[6], 1,
        {"Invalid number of values for value 2: scalar expected", "Expected double precision value for value 2"});
}

// Reads constraint and value, and writes the value to the material.
Verdict setConstraint(const mxArray *const *arguments, FlashConstraint constraint, const mxArray *value,
                      OpenPackage &package)
{
    ConstraintSlot slot;
    if (Verdict verdict = ReadConstraint(arguments, constraint, package, FindVaporPhase(package), slot);
        !verdict.isDone())
        return verdict;
    slot.write(*package.material, mxGetScalar(value));
    return Verdict::done();
}

// Everything in front of the package's calculation.
Verdict prepareFlash(const mxArray *const *arguments, OpenPackage &package)
{
    CMaterialObject &material = *package.material;
    std::fill_n(material.phasePresent.get(), material.phaseCount(), 1);
    std::copy_n(mxGetPr(arguments[2]), material.compoundCount(), material.overallComposition.get());
    material.overallCompositionBasis = GlobalSettings.defaultBasis;

    EnsureSpecifications();
    if (Verdict verdict = setConstraint(arguments, FlashConstraint::First, arguments[4], package); !verdict.isDone())
        return verdict;
    if (Verdict verdict = setConstraint(arguments, FlashConstraint::Second, arguments[6], package); !verdict.isDone())
        return verdict;
    return ReadSolutionType(arguments[7]);
}

Verdict putResults(const CMaterialObject &material, mxArray **results)
{
    ListPresentPhases(material);
    const mwSize rows = HandleList.size();
    const mwSize labelDimensions[] = {rows, 1};
    results[0] = mxCreateCellArray_730(2, labelDimensions);
    results[1] = mxCreateDoubleMatrix_730(rows, 1, mxREAL);
    results[2] = mxCreateDoubleMatrix_730(rows, static_cast<mwSize>(material.compoundCount()), mxREAL);
    results[3] = mxCreateDoubleMatrix_730(1, 1, mxREAL);
    results[4] = mxCreateDoubleMatrix_730(1, 1, mxREAL);
    for (std::size_t r = 0; r < rows; ++r)
        mxSetCell_730(results[0], r, CreateRowString(material.openPackage->phaseLabels[HandleList[r]]));
    if (Verdict verdict = ReadPhases(material, mxGetPr(results[1]), mxGetPr(results[2])); !verdict.isDone())
        return verdict;
    *mxGetPr(results[3]) = material.temperature;
    *mxGetPr(results[4]) = material.pressure;
    return Verdict::done();
}

} // namespace

Verdict SingleFlashCommand(const CommandCall &call)
{
    const mxArray *const *arguments = call.arguments;
    OpenPackage *package = nullptr;
    if (Verdict verdict = OpenFlash(arguments, package); !verdict.isDone())
        return verdict;
    if (Verdict verdict = checkArguments(arguments, package->material->compoundCount()); !verdict.isDone())
        return verdict;
    if (!EnsureEquilibriumRoutine(*package))
        return Verdict::failed();
    if (Verdict verdict = prepareFlash(arguments, *package); !verdict.isDone())
        return verdict;
    const CommandContainers &scratch = CommandScratch;
    const HRESULT hr = CallComponent([&] {
        return package->equilibriumRoutine->CalcEquilibrium(
            scratch.flashSpecification1.value, scratch.flashSpecification2.value, scratch.solutionTypeArgument.get());
    });
    if (FAILED(hr))
        return FailWith(OLESTR("CalcEquilibrium failed: "), CapeErrorText(package->equilibriumRoutine, hr));
    return putResults(*package->material, call.results);
}
