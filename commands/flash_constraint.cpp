#include "commands/flash_constraint.h"

#include "cape/com/bstr.h"
#include "cape/same_name.h"
#include "commands/command_scratch.h"
#include "gateway/call/failure_text.h"
#include "gateway/call/marshalling.h"
#include "gateway/state/settings.h"
#include "material/ensure_material.h"
#include "packages/handle_argument.h"

namespace {

// An empty element is a null string; what stood there goes.
void fill(VariantArray &specification, LPCWSTR property, LPCWSTR basis, LPCWSTR phase)
{
    const LPCWSTR elements[] = {property, basis, phase};
    for (std::int32_t i = 0; i < 3; ++i)
        specification.PutString(i, Bstr(elements[i]).get());
}

constexpr LPCWSTR overall = OLESTR("Overall");

Verdict readVaporFraction(OpenPackage &package, std::int32_t vaporPhase, VariantArray &specification,
                          ConstraintSlot &slot)
{
    if (vaporPhase < 0)
        return Verdict::refuse("Package does not expose vapor phase");
    CMaterialObject &material = *package.material;
    const bool massBasis = GlobalSettings.defaultBasis != 0;
    fill(specification, OLESTR("phaseFraction"), massBasis ? OLESTR("mass") : OLESTR("mole"),
         package.phaseLabels[vaporPhase].c_str());
    material.phaseFractionBasis[vaporPhase] = GlobalSettings.defaultBasis;
    slot.field = &material.phaseFraction[vaporPhase];
    return Verdict::done();
}

Verdict readProperty(LPCWSTR name, CMaterialObject &material, VariantArray &specification, ConstraintSlot &slot)
{
    ParsedProperty property;
    if (!ParseFlashProperty(name, property))
        return FailWith(OLESTR("Not a valid flash property: "), name,
                        OLESTR(" (use capeOpenFlashPropList for list of valid properties)"));
    fill(specification, name, nullptr, overall);
    slot.property = name;
    slot.basis = GlobalSettings.defaultBasis != 0 && property.basisPower != 0 ? 1 : 0;
    PropertyValues &entry = material.overallProps.entry(name);
    entry.basis = slot.basis;
    if (entry.count == 1 && entry.values)
        return Verdict::done();
    if (!entry.resize(1))
        return Verdict::refuse("Out of memory");
    entry.values[0] = QuietNaN; // until a value is written
    return Verdict::done();
}

} // namespace

bool ParseFlashProperty(LPCWSTR name, ParsedProperty &property)
{
    return ParsePropertyName(property, singlePhaseProperties, name, ScratchText) && property.mixable != 0 &&
           property.derivative == NoDerivative;
}

Verdict ReadSolutionType(const mxArray *argument)
{
    StringArg text;
    if (Verdict verdict = text.read(argument, "Expected string value for solution type"); !verdict.isDone())
        return verdict;
    CommandScratch.solutionTypeArgument.assign(text.get());
    return Verdict::done();
}

std::int32_t FindVaporPhase(const OpenPackage &package)
{
    for (std::size_t p = 0; p < package.phaseStatesOfAggregation.size(); ++p)
        if (SameName(package.phaseStatesOfAggregation[p].c_str(), OLESTR("vapor")))
            return static_cast<std::int32_t>(p);
    return -1;
}

void EnsureSpecifications()
{
    for (VariantArray *specification : {&CommandScratch.flashSpecification1, &CommandScratch.flashSpecification2})
        if (specification->count == 0)
            specification->Create(3, VT_BSTR);
}

Verdict OpenFlash(const mxArray *const *arguments, OpenPackage *&package)
{
    if (Verdict verdict = ReadPackage(arguments[1], package); !verdict.isDone())
        return verdict;
    return Verdict::of(EnsureMaterial(*package));
}

Verdict ReadConstraint(const mxArray *const *arguments, FlashConstraint constraint, OpenPackage &package,
                       std::int32_t vaporPhase, ConstraintSlot &slot)
{
    const bool isFirst = constraint == FlashConstraint::First;
    VariantArray &specification = isFirst ? CommandScratch.flashSpecification1 : CommandScratch.flashSpecification2;
    slot = ConstraintSlot();
    StringArg name;
    if (Verdict verdict = name.read(arguments[isFirst ? 3 : 5], isFirst ? "Expected string value for property 1"
                                                                        : "Expected string value for property 2");
        !verdict.isDone())
        return verdict;
    CMaterialObject &material = *package.material;
    // Packages get these two in one spelling, whatever the script wrote.
    constexpr LPCWSTR temperature = OLESTR("Temperature");
    constexpr LPCWSTR pressure = OLESTR("Pressure");
    if (SameName(name.get(), temperature)) {
        fill(specification, temperature, nullptr, overall);
        slot.field = &material.temperature;
        return Verdict::done();
    }
    if (SameName(name.get(), pressure)) {
        fill(specification, pressure, nullptr, overall);
        slot.field = &material.pressure;
        return Verdict::done();
    }
    if (SameName(name.get(), OLESTR("vaporFraction")))
        return readVaporFraction(package, vaporPhase, specification, slot);
    return readProperty(name.get(), material, specification, slot);
}
