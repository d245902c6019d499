// What the system knows of one property package that a script has open. Nothing but the package
// itself is there at first; the Ensure operations fetch the rest once and keep it until the
// record is destroyed.
#pragma once

#include "cape/com/cape_open.h"
#include "cape/variant_array.h"
#include "platform/platform.h"

#include <vector>

class CMaterialObject;
struct OpenPackage;

// What works on a record and may outlive it: a material that its package keeps. It learns that the record has gone.
class RecordUser {
public:
    OpenPackage *openPackage = nullptr; // not owned; null before use() and when the record is gone

    RecordUser() = default;
    RecordUser(const RecordUser &) = delete;
    RecordUser &operator=(const RecordUser &) = delete;

protected:
    ~RecordUser() { leave(); }

    void use(OpenPackage &package);

private:
    friend struct OpenPackage;
    void leave();

    RecordUser *next = nullptr;  // of the users of the same record
    RecordUser **link = nullptr; // what points to this one
};

// Every interface pointer holds one reference of its own.
struct OpenPackage {
    WideString name; // manager name, colon, package name; or the stand-alone package's name alone
    IDispatch *package = nullptr;
    ICapeThermoCompounds *compounds = nullptr;
    ICapeThermoPhases *phases = nullptr;
    ICapeThermoEquilibriumRoutine *equilibriumRoutine = nullptr;
    ICapeThermoPropertyRoutine *propertyRoutine = nullptr;
    IUnknown *materialReference = nullptr; // the record's reference on its material, whose class is not known here
    CMaterialObject *material = nullptr;   // the same object
    RecordUser *users = nullptr;           // all materials of this record

    bool compoundsLoaded = false; // all compound fields are valid
    VariantArray compoundIdList;  // the six results of GetCompoundList as the package gave them
    VariantArray compoundFormulaList;
    VariantArray compoundNameList;
    VariantArray compoundBoilingPointList;
    VariantArray compoundMolecularWeightList;
    VariantArray compoundCasNumberList;
    std::vector<double> molecularWeights; // g/mol, each above zero or NaN
    std::vector<WideString> compoundIds;

    bool phasesLoaded = false;   // all phase fields are valid
    VariantArray phaseLabelList; // the three results of GetPhaseList as the package gave them
    VariantArray phaseStateOfAggregationList;
    VariantArray phaseKeyCompoundList;
    std::vector<WideString> phaseStatesOfAggregation;
    std::vector<WideString> phaseLabels;

    OpenPackage(); // builds the property tables when this is the first record
    ~OpenPackage();
    OpenPackage(const OpenPackage &) = delete;
    OpenPackage &operator=(const OpenPackage &) = delete;
};

// Each makes one aspect ready, costs a test once it has succeeded, and leaves its message in
// LastError on false; what was obtained before the failure stays.
bool EnsureCompoundsInterface(OpenPackage &package);
bool EnsurePhasesInterface(OpenPackage &package);
bool EnsureCompounds(OpenPackage &package);
bool EnsurePhases(OpenPackage &package);
bool EnsurePropertyRoutine(OpenPackage &package);
bool EnsureEquilibriumRoutine(OpenPackage &package);
