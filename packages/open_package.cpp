#include "packages/open_package.h"

#include "cape/com/com_pointer.h"
#include "cape/com/variant.h"
#include "cape/error_text.h"
#include "gateway/state/global_text.h"
#include "packages/component.h"
#include "properties/vocabulary.h"

#include <iterator>
#include <utility>

namespace {

template <class Interface> void releaseAndClear(Interface *&pointer)
{
    ComPointer<Interface>(std::exchange(pointer, nullptr)).reset();
}

template <class Interface> bool ensureInterface(OpenPackage &package, Interface *&field, LPCWSTR prefix)
{
    if (field)
        return true;
    ComPointer<Interface> queried;
    const HRESULT hr = queried.queryFrom(package.package);
    if (!field) // a package that calls a command in between may have had it fetched
        field = queried.detach();
    if (field)
        return true;
    LastError = prefix + HResultText(hr);
    return false;
}

// A list that the package gave must be an array of the type; `what` begins the message.
bool validateList(VariantArray &list, VARTYPE elementType, LPCWSTR what)
{
    WideString reason;
    if (list.Validate(elementType, reason))
        return true;
    LastError = what + reason;
    return false;
}

} // namespace

OpenPackage::OpenPackage() { BuildPropertyTables(); }

// The order is required: the thermodynamic interfaces go first, then the package is terminated and
// released, and only then does the record give up the material, which the package was never told
// to drop. The members follow in reverse order of declaration.
OpenPackage::~OpenPackage()
{
    releaseAndClear(compounds);
    releaseAndClear(phases);
    releaseAndClear(equilibriumRoutine);
    releaseAndClear(propertyRoutine);
    if (package) {
        TerminateComponent(package);
        releaseAndClear(package);
    }
    material = nullptr;
    releaseAndClear(materialReference);
    while (users)
        users->leave();
}

void RecordUser::use(OpenPackage &package)
{
    openPackage = &package;
    next = std::exchange(package.users, this);
    link = &package.users;
    if (next)
        next->link = &next;
}

void RecordUser::leave()
{
    if (!openPackage)
        return;
    openPackage = nullptr;
    *link = next;
    if (next)
        next->link = link;
}

bool EnsureCompoundsInterface(OpenPackage &package)
{
    return ensureInterface(package, package.compounds,
                           OLESTR("Failed to get ICompounds interface from property package: "));
}

bool EnsurePhasesInterface(OpenPackage &package)
{
    return ensureInterface(package, package.phases,
                           OLESTR("Failed to get ICapeThermoPhases interface from property package: "));
}

bool EnsureEquilibriumRoutine(OpenPackage &package)
{
    return ensureInterface(package, package.equilibriumRoutine,
                           OLESTR("Failed to get ICapeThermoEquilibriumRoutine interface from property package: "));
}

// The text names the equilibrium routine here too: scripts know it so.
bool EnsurePropertyRoutine(OpenPackage &package)
{
    return ensureInterface(package, package.propertyRoutine,
                           OLESTR("Failed to get ICapeThermoEquilibriumRoutine interface from property package: "));
}

bool EnsureCompounds(OpenPackage &package)
{
    if (package.compoundsLoaded)
        return true;
    if (!EnsureCompoundsInterface(package))
        return false;
    VariantArray *const lists[] = {
        &package.compoundIdList,           &package.compoundFormulaList,         &package.compoundNameList,
        &package.compoundBoilingPointList, &package.compoundMolecularWeightList, &package.compoundCasNumberList};
    VARIANT results[std::size(lists)];
    for (VARIANT &result : results)
        VariantInit(&result);
    const HRESULT hr = CallComponent([&] {
        return package.compounds->GetCompoundList(&results[0], &results[1], &results[2], &results[3], &results[4],
                                                  &results[5]);
    });
    if (FAILED(hr)) {
        // What a failed call left in the results is not trusted, so it is not cleared either.
        LastError =
            OLESTR("Failed to get list of compounds from property package: ") + CapeErrorText(package.compounds, hr);
        return false;
    }
    if (package.compoundsLoaded) { // by a command that the package called: what may be in use already stays
        for (VARIANT &result : results)
            VariantClear(&result);
        return true;
    }
    for (std::size_t i = 0; i < std::size(lists); ++i)
        lists[i]->Attach(results[i], 1);

    VariantArray &ids = package.compoundIdList;
    VariantArray &weights = package.compoundMolecularWeightList;
    if (!validateList(ids, VT_BSTR, OLESTR("Invalid list of compound IDs from property package: ")))
        return false;
    if (ids.count == 0) {
        LastError = OLESTR("Property package does not contain any compounds");
        return false;
    }
    if (!validateList(weights, VT_R8, OLESTR("Invalid list of molecular weights from property package: ")))
        return false;
    if (weights.count != ids.count) {
        LastError = OLESTR("Invalid list of molecular weights from property package: "
                           "size does not match number of compounds");
        return false;
    }
    package.molecularWeights.resize(static_cast<std::size_t>(ids.count));
    package.compoundIds.resize(static_cast<std::size_t>(ids.count));
    for (std::int32_t i = 0; i < ids.count; ++i) {
        package.compoundIds[i] = ids.TextAt(i);
        package.molecularWeights[i] = weights.GetDouble(i);
        if (0 >= package.molecularWeights[i]) { // a NaN passes: only conversions need the weight
            LastError = OLESTR("One or more molecular weights returned by property package are zero or negative");
            return false;
        }
    }
    package.compoundsLoaded = true;
    return true;
}

bool EnsurePhases(OpenPackage &package)
{
    if (package.phasesLoaded)
        return true;
    if (!EnsurePhasesInterface(package))
        return false;
    Variant labels;
    Variant states;
    Variant keyCompounds;
    const HRESULT hr =
        CallComponent([&] { return package.phases->GetPhaseList(labels.out(), states.out(), keyCompounds.out()); });
    if (FAILED(hr)) {
        LastError = OLESTR("Failed to get list of phases from property package: ") + CapeErrorText(package.phases, hr);
        return false;
    }
    if (package.phasesLoaded) // by a command that the package called
        return true;
    package.phaseLabelList.Attach(labels.release(), 1);
    package.phaseStateOfAggregationList.Attach(states.release(), 1);
    package.phaseKeyCompoundList.Attach(keyCompounds.release(), 1);

    const VariantArray &labelList = package.phaseLabelList;
    if (!validateList(package.phaseLabelList, VT_BSTR, OLESTR("Invalid list of phase labels from property package: ")))
        return false;
    if (labelList.count == 0) {
        LastError = OLESTR("Property package does not contain any phases");
        return false;
    }
    if (!validateList(package.phaseStateOfAggregationList, VT_BSTR,
                      OLESTR("Invalid list of aggregation states from property package: ")))
        return false;
    if (package.phaseStateOfAggregationList.count != labelList.count) {
        LastError = OLESTR("Invalid list of aggregation states from property package: "
                           "size does not match number of phases");
        return false;
    }
    package.phaseStatesOfAggregation.resize(static_cast<std::size_t>(labelList.count));
    package.phaseLabels.resize(static_cast<std::size_t>(labelList.count));
    for (std::int32_t i = 0; i < labelList.count; ++i) {
        package.phaseStatesOfAggregation[i] = package.phaseStateOfAggregationList.TextAt(i);
        package.phaseLabels[i] = labelList.TextAt(i);
    }
    package.phasesLoaded = true;
    return true;
}
