// CapeOpen11.tlb against the declarations in cape/: what the compiler lays out, callers in other processes and scripts
// find by the library.
#include "cape/com/cape_open.h"
#include "tests/type_library/library_view.h"

#include <gtest/gtest.h>

namespace {

const LibraryView &capeOpenLibrary()
{
    static const LibraryView view(OLESTR("CapeOpen11.tlb"));
    return view;
}

// A member with a number of 16 bits, which the compiler does not tell from a truth value of automation.
shape::Member ofShort(shape::Member member)
{
    for (std::string &parameter : member.parameters)
        if (const std::size_t found = parameter.find("VARIANT_BOOL"); found != std::string::npos)
            parameter.replace(found, 12, "short");
    return member;
}

// Dispatch ids count from 1 in the order of the slots; the two ends of one property share theirs.
const shape::Interface declarations[] = {
    DECLARED(ECapeRoot, MEMBER(ECapeRoot, get_name, 1, "retval")),
    DECLARED(ECapeUser, MEMBER(ECapeUser, get_code, 1, "retval"), MEMBER(ECapeUser, get_description, 2, "retval"),
             MEMBER(ECapeUser, get_scope, 3, "retval"), MEMBER(ECapeUser, get_interfaceName, 4, "retval"),
             MEMBER(ECapeUser, get_operation, 5, "retval"), MEMBER(ECapeUser, get_moreInfo, 6, "retval")),
    shape::interfaceOf<ECapeUnknown>("ECapeUnknown", {}),
    shape::interfaceOf<ECapeData>("ECapeData", {}),
    shape::interfaceOf<ECapeBadArgument>("ECapeBadArgument",
                                         {ofShort(MEMBER(ECapeBadArgument, get_position, 1, "retval"))}),
    shape::interfaceOf<ECapeInvalidArgument>("ECapeInvalidArgument", {}),
    shape::interfaceOf<ECapeOutOfBounds>("ECapeOutOfBounds", {}),
    DECLARED(ECapeBoundaries, MEMBER(ECapeBoundaries, get_LowerBound, 1, "retval"),
             MEMBER(ECapeBoundaries, get_UpperBound, 2, "retval"), MEMBER(ECapeBoundaries, get_value, 3, "retval"),
             MEMBER(ECapeBoundaries, get_Type, 4, "retval")),
    shape::interfaceOf<ECapeImplementation>("ECapeImplementation", {}),
    shape::interfaceOf<ECapeNoImpl>("ECapeNoImpl", {}),
    shape::interfaceOf<ECapeLimitedImpl>("ECapeLimitedImpl", {}),
    shape::interfaceOf<ECapeComputation>("ECapeComputation", {}),
    shape::interfaceOf<ECapeFailedInitialisation>("ECapeFailedInitialisation", {}),
    shape::interfaceOf<ECapeSolvingError>("ECapeSolvingError", {}),
    DECLARED(ECapeBadInvOrder, MEMBER(ECapeBadInvOrder, get_requestedOperation, 1, "retval")),
    shape::interfaceOf<ECapeThrmPropertyNotAvailable>("ECapeThrmPropertyNotAvailable", {}),
    DECLARED(ICapeIdentification, MEMBER(ICapeIdentification, get_ComponentName, 1, "retval"),
             MEMBER(ICapeIdentification, put_ComponentName, 1, "in"),
             MEMBER(ICapeIdentification, get_ComponentDescription, 2, "retval"),
             MEMBER(ICapeIdentification, put_ComponentDescription, 2, "in")),
    DECLARED(ICapeUtilities, MEMBER(ICapeUtilities, get_parameters, 1, "retval"),
             MEMBER(ICapeUtilities, put_simulationContext, 2, "in"), MEMBER(ICapeUtilities, Initialize, 3),
             MEMBER(ICapeUtilities, Terminate, 4), MEMBER(ICapeUtilities, Edit, 5)),
    DECLARED(ICapeCollection, MEMBER(ICapeCollection, Item, 1, "in retval"),
             MEMBER(ICapeCollection, Count, 2, "retval")),
    shape::interfaceOf<ICapeSimulationContext>("ICapeSimulationContext", {}),
    DECLARED(ICapeDiagnostic, MEMBER(ICapeDiagnostic, PopUpMessage, 1, "in"),
             MEMBER(ICapeDiagnostic, LogMessage, 2, "in")),
    DECLARED(ICapeThermoMaterial, MEMBER(ICapeThermoMaterial, ClearAllProps, 1),
             MEMBER(ICapeThermoMaterial, CopyFromMaterial, 2, "in"),
             MEMBER(ICapeThermoMaterial, CreateMaterial, 3, "retval"),
             MEMBER(ICapeThermoMaterial, GetOverallProp, 4, "in in inout"),
             MEMBER(ICapeThermoMaterial, GetOverallTPFraction, 5, "inout inout inout"),
             MEMBER(ICapeThermoMaterial, GetPresentPhases, 6, "inout inout"),
             MEMBER(ICapeThermoMaterial, GetSinglePhaseProp, 7, "in in in inout"),
             MEMBER(ICapeThermoMaterial, GetTPFraction, 8, "in inout inout inout"),
             MEMBER(ICapeThermoMaterial, GetTwoPhaseProp, 9, "in in in inout"),
             MEMBER(ICapeThermoMaterial, SetOverallProp, 10, "in in in"),
             MEMBER(ICapeThermoMaterial, SetPresentPhases, 11, "in in"),
             MEMBER(ICapeThermoMaterial, SetSinglePhaseProp, 12, "in in in in"),
             MEMBER(ICapeThermoMaterial, SetTwoPhaseProp, 13, "in in in in")),
    DECLARED(ICapeThermoMaterialContext, MEMBER(ICapeThermoMaterialContext, SetMaterial, 1, "in"),
             MEMBER(ICapeThermoMaterialContext, UnsetMaterial, 2)),
    DECLARED(ICapeThermoCompounds, MEMBER(ICapeThermoCompounds, GetCompoundConstant, 1, "in in retval"),
             MEMBER(ICapeThermoCompounds, GetCompoundList, 2, "inout inout inout inout inout inout"),
             MEMBER(ICapeThermoCompounds, GetConstPropList, 3, "retval"),
             MEMBER(ICapeThermoCompounds, GetNumCompounds, 4, "retval"),
             MEMBER(ICapeThermoCompounds, GetPDependentProperty, 5, "in in in inout"),
             MEMBER(ICapeThermoCompounds, GetPDependentPropList, 6, "retval"),
             MEMBER(ICapeThermoCompounds, GetTDependentProperty, 7, "in in in inout"),
             MEMBER(ICapeThermoCompounds, GetTDependentPropList, 8, "retval")),
    DECLARED(ICapeThermoPhases, MEMBER(ICapeThermoPhases, GetNumPhases, 1, "retval"),
             MEMBER(ICapeThermoPhases, GetPhaseInfo, 2, "in in retval"),
             MEMBER(ICapeThermoPhases, GetPhaseList, 3, "inout inout inout")),
    DECLARED(ICapeThermoPropertyRoutine,
             MEMBER(ICapeThermoPropertyRoutine, CalcAndGetLnPhi, 1, "in in in in in inout inout inout inout"),
             MEMBER(ICapeThermoPropertyRoutine, CalcSinglePhaseProp, 2, "in in"),
             MEMBER(ICapeThermoPropertyRoutine, CalcTwoPhaseProp, 3, "in in"),
             MEMBER(ICapeThermoPropertyRoutine, CheckSinglePhasePropSpec, 4, "in in retval"),
             MEMBER(ICapeThermoPropertyRoutine, CheckTwoPhasePropSpec, 5, "in in retval"),
             MEMBER(ICapeThermoPropertyRoutine, GetSinglePhasePropList, 6, "retval"),
             MEMBER(ICapeThermoPropertyRoutine, GetTwoPhasePropList, 7, "retval")),
    DECLARED(ICapeThermoEquilibriumRoutine, MEMBER(ICapeThermoEquilibriumRoutine, CalcEquilibrium, 1, "in in in"),
             MEMBER(ICapeThermoEquilibriumRoutine, CheckEquilibriumSpec, 2, "in in in retval")),
    DECLARED(ICapeThermoUniversalConstant, MEMBER(ICapeThermoUniversalConstant, GetUniversalConstant, 1, "in retval"),
             MEMBER(ICapeThermoUniversalConstant, GetUniversalConstantList, 2, "retval")),
    DECLARED(ICapeThermoPropertyPackageManager,
             MEMBER(ICapeThermoPropertyPackageManager, GetPropertyPackageList, 1, "retval"),
             MEMBER(ICapeThermoPropertyPackageManager, GetPropertyPackage, 2, "in retval")),
};

// What the library has beyond the declarations.
const std::map<std::string, std::string> undeclared = {
    {"ECapeBadCOParameter", "{678C0B15-7D66-11D2-A67D-00105A42887F}"},
    {"ECapeErrorDummy", "{678C0B07-7D66-11D2-A67D-00105A42887F}"},
    {"ECapeHessianInfoNotAvailable", "{3FF0B24B-4299-4DAC-A46E-7843728AD205}"},
    {"ECapeIllegalAccess", "{678C0B25-7D66-11D2-A67D-00105A42887F}"},
    {"ECapeInvalidOperation", "{678C0B23-7D66-11D2-A67D-00105A42887F}"},
    {"ECapeLicenceError", "{678C0B14-7D66-11D2-A67D-00105A42887F}"},
    {"ECapeNoMemory", "{678C0B1E-7D66-11D2-A67D-00105A42887F}"},
    {"ECapeOutOfResources", "{678C0B1D-7D66-11D2-A67D-00105A42887F}"},
    {"ECapeOutsideSolverScope", "{678C0B0F-7D66-11D2-A67D-00105A42887F}"},
    {"ECapePersistence", "{678C0B24-7D66-11D2-A67D-00105A42887F}"},
    {"ECapePersistenceNotFound", "{678C0B26-7D66-11D2-A67D-00105A42887F}"},
    {"ECapePersistenceOverflow", "{678C0B28-7D66-11D2-A67D-00105A42887F}"},
    {"ECapePersistenceSystemError", "{678C0B27-7D66-11D2-A67D-00105A42887F}"},
    {"ECapeTimeOut", "{678C0B1F-7D66-11D2-A67D-00105A42887F}"},
    {"ICapeCOSEUtilities", "{678C0A9F-0100-11D2-A67D-00105A42887F}"},
    {"ICapeMaterialTemplateSystem", "{678C0A9E-0100-11D2-A67D-00105A42887F}"},
};

class CapeOpenInterface : public testing::TestWithParam<shape::Interface> {};

} // namespace

TEST(CapeOpenLibrary, IsTheStandards)
{
    const TLIBATTR attributes = capeOpenLibrary().attributes();
    EXPECT_EQ(identifierText(attributes.guid), "{4A5E2E81-C093-11D4-9F1B-0010A4D198C2}");
    EXPECT_EQ(identifierText(attributes.guid), identifierText(LIBID_CAPEOPEN110));
    EXPECT_EQ(attributes.wMajorVerNum, 1);
    EXPECT_EQ(attributes.wMinorVerNum, 1);
    EXPECT_EQ(attributes.lcid, 0u);
    EXPECT_EQ(attributes.syskind, SYS_WIN32) << "programs of both kinds find only those";
    EXPECT_EQ(capeOpenLibrary().name(), "CAPEOPEN110");
    EXPECT_EQ(capeOpenLibrary().helpText(), "CAPE-OPEN 1.1 Type Library");
}

TEST(CapeOpenLibrary, HasTheDeclaredInterfacesAndTheKindsOfErrors)
{
    std::map<std::string, std::string> expected = undeclared;
    for (const shape::Interface &declared : declarations)
        expected[declared.name] = identifierText(declared.iid);
    EXPECT_EQ(expected.size(), undeclared.size() + std::size(declarations));
    EXPECT_EQ(capeOpenLibrary().interfaces(), expected);
}

TEST_P(CapeOpenInterface, IsDescribedAsItIsDeclared)
{
    const shape::Interface &declared = GetParam();
    const shape::Interface described = capeOpenLibrary().interfaceOf(declared.iid);
    EXPECT_EQ(described.name, declared.name);
    EXPECT_EQ(identifierText(described.iid), identifierText(declared.iid));
    EXPECT_EQ(described.members, declared.members);
    EXPECT_EQ(declared.slots, 7 + declared.members.size()) << "a function is declared that stands in neither list";
}

INSTANTIATE_TEST_SUITE_P(, CapeOpenInterface, testing::ValuesIn(declarations),
                         [](const auto &info) { return info.param.name; });

TEST(CapeOpenLibrary, HasTheValuesOfTheStandard)
{
    const auto values = capeOpenLibrary().enumerations();
    EXPECT_EQ(values.at("eCapePhaseStatus"),
              (std::map<std::string, long>{
                  {"CAPE_UNKNOWNPHASESTATUS", 0}, {"CAPE_ATEQUILIBRIUM", 1}, {"CAPE_ESTIMATES", 2}}));
    EXPECT_EQ(values.at("eCapeCalculationCode"), (std::map<std::string, long>{{"CAPE_NO_CALCULATION", 0},
                                                                              {"CAPE_LOG_FUGACITY_COEFFICIENTS", 1},
                                                                              {"CAPE_T_DERIVATIVE", 2},
                                                                              {"CAPE_P_DERIVATIVE", 4},
                                                                              {"CAPE_MOLE_NUMBERS_DERIVATIVES", 8}}));
    EXPECT_EQ(values.at("eCapeParamType"),
              (std::map<std::string, long>{
                  {"CAPE_REAL", 0}, {"CAPE_INT", 1}, {"CAPE_OPTION", 2}, {"CAPE_BOOLEAN", 3}, {"CAPE_ARRAY", 4}}));
    EXPECT_EQ(values.at("eCapeParamMode"),
              (std::map<std::string, long>{{"CAPE_INPUT", 0}, {"CAPE_OUTPUT", 1}, {"CAPE_INPUT_OUTPUT", 2}}));
    EXPECT_EQ(values.at("eCapeValidationStatus"),
              (std::map<std::string, long>{{"CAPE_NOT_VALIDATED", 0}, {"CAPE_INVALID", 1}, {"CAPE_VALID", 2}}));
    EXPECT_EQ(values.size(), 6u);
}

TEST(CapeOpenLibrary, HasTheResultCodesInOneBlock)
{
    const auto codes = capeOpenLibrary().enumerations().at("eCapeErrorInterfaceHR_tag");
    std::map<long, std::string> byCode;
    for (const auto &[name, code] : codes)
        byCode[code] = name;
    EXPECT_EQ(byCode.size(), 26u);
    EXPECT_EQ(byCode.begin()->first, ECapeUnknownHR);
    EXPECT_EQ(byCode.begin()->second, "ECapeUnknownHR");
    EXPECT_EQ(byCode.rbegin()->first, ECapeThrmPropertyNotAvailableHR);
    EXPECT_EQ(byCode.rbegin()->second, "ECapeThrmPropertyNotAvailableHR");
    EXPECT_EQ(codes.at("ECapeComputationHR"), static_cast<HRESULT>(0x8004050Bu));
    EXPECT_EQ(codes.at("ECapeBadInvOrderHR"), static_cast<HRESULT>(0x80040511u));
}

TEST(CapeOpenLibrary, GivesEnumerationsTheNamesThatArgumentsUse)
{
    EXPECT_EQ(capeOpenLibrary().aliases(),
              (std::map<std::string, std::string>{
                  {"CapeErrorInterfaceHR", "eCapeErrorInterfaceHR_tag {678C0B01-7D66-11D2-A67D-00105A42887F}"},
                  {"CapeParamType", "eCapeParamType {678C0B02-7D66-11D2-A67D-00105A42887F}"},
                  {"CapeParamMode", "eCapeParamMode {678C0B03-7D66-11D2-A67D-00105A42887F}"},
                  {"CapeValidationStatus", "eCapeValidationStatus {678C0B04-7D66-11D2-A67D-00105A42887F}"}}));
}
