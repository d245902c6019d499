// How a package gets its material: once, with the first calculation, and not again.
#include "tests/support/mex_test.h"

using namespace support;

namespace {

struct Calculation {
    friend void PrintTo(const Calculation &calculation, std::ostream *stream) { *stream << calculation.name; }

    const char *name;
    const char *method; // of the package, reached when the material was handed over
    int outputs;
    std::vector<Array> (*arguments)(const Array &handle);
};

const Calculation calculations[] = {
    {"SinglePhase", "CalcSinglePhaseProp", 1,
     [](const Array &handle) {
         return std::vector<Array>{Scalar(22),  Scalar(1),   handle,          Text("volume"),
                                   Scalar(350), Scalar(1e5), Row({0.5, 0.5}), Text("Vapor")};
     }},
    {"TwoPhase", "CalcTwoPhaseProp", 1,
     [](const Array &handle) {
         return std::vector<Array>{Scalar(23),  Scalar(1),       handle,          Text("kvalue"), Scalar(350),
                                   Scalar(1e5), Row({0.5, 0.5}), Row({0.5, 0.5}), Text("Vapor"),  Text("Liquid")};
     }},
    {"Flash", "CalcEquilibrium", 5,
     [](const Array &handle) {
         return std::vector<Array>{Scalar(24),  handle,           Row({0.5, 0.5}), Text("temperature"),
                                   Scalar(350), Text("pressure"), Scalar(1e5),     Text("Unspecified")};
     }},
    {"Batch", "CalcEquilibrium", 1,
     [](const Array &handle) {
         return std::vector<Array>{Scalar(25),  handle,           Row({0.5, 0.5}), Text("temperature"),
                                   Scalar(350), Text("pressure"), Scalar(1e5),     Text("Unspecified"),
                                   Scalar(1),   Text("volume")};
     }},
};

class MaterialHandover : public MexTest, public testing::WithParamInterface<Calculation> {
protected:
    PackageScript &package = world.addPackage("Alone");

    CallResult calculate(const Array &handle) { return call(GetParam().outputs, GetParam().arguments(handle)); }
    std::string refusedCalculation(const Array &handle)
    {
        return refusal(GetParam().outputs, GetParam().arguments(handle));
    }
    int calculated() const { return package.calls(GetParam().method); }
};

// The details that do not depend on the command.
class HandedMaterial : public MexTest {
protected:
    PackageScript &package = world.addPackage("Alone");

    // Calculates a volume; `action` sees the material while the package calculates.
    void calculateWith(const std::function<void(const MaterialClient &)> &action)
    {
        package.calcSinglePhase = [&](const SinglePhaseCall &request) {
            action(request.material);
            return request.material.setSinglePhase("volume", request.phase, "mole", {0.025});
        };
        mustReturn(1, calculations[0].arguments(open("Alone")));
        package.calcSinglePhase = nullptr;
    }
};

} // namespace

TEST_P(MaterialHandover, HappensWithTheFirstCommandOfAllAfterCompoundsAndPhases)
{
    const Array handle = open("Alone");
    world.log.clear();
    calculate(handle);
    ASSERT_GE(world.log.size(), 4u);
    world.log.resize(3);
    EXPECT_EQ(world.log, (CallLog{"package.GetCompoundList", "package.GetPhaseList", "package.SetMaterial"}));
    EXPECT_EQ(calculated(), 1);
}

TEST_P(MaterialHandover, HappensOnce)
{
    const Array handle = open("Alone");
    calculate(handle);
    calculate(handle);
    EXPECT_EQ(calculated(), 2);
    EXPECT_EQ(package.calls("SetMaterial"), 1);
    EXPECT_EQ(package.calls("UnsetMaterial"), 0);
    EXPECT_EQ(package.calls("GetCompoundList"), 1);
    EXPECT_EQ(package.calls("GetPhaseList"), 1);
}

TEST_P(MaterialHandover, ThatFindsNoMaterialContextFailsOnceAndTheNextCommandGetsPastIt)
{
    package.refuse(InterfaceId<ICapeThermoMaterialContext>, oddFailure);
    const Array handle = open("Alone");
    EXPECT_EQ(refusedCalculation(handle),
              std::string("Failed to get ICapeThermoMaterialContext from property package: ") + oddFailureText);
    EXPECT_EQ(calculated(), 0);
    calculate(handle);
    EXPECT_EQ(calculated(), 1);
    EXPECT_EQ(package.calls("SetMaterial"), 0);
}

TEST_P(MaterialHandover, ThatThePackageRefusesFailsOnceInItsWordsAndTheNextCommandGetsPastIt)
{
    package.answer("SetMaterial", CapeFailure(0x12));
    package.words = Description("no material, please");
    package.words.onlyFrom = &InterfaceId<ICapeThermoMaterialContext>;
    const Array handle = open("Alone");
    EXPECT_EQ(refusedCalculation(handle), "Failed to set material object on property package: no material, please");
    EXPECT_EQ(calculated(), 0);
    EXPECT_EQ(package.references(InterfaceId<ICapeThermoMaterialContext>), 0);
    calculate(handle);
    EXPECT_EQ(calculated(), 1);
    EXPECT_EQ(package.calls("SetMaterial"), 1);
}

TEST_P(MaterialHandover, WaitsForTheCompounds)
{
    package.answer("GetCompoundList", CapeFailure(0x02), 1);
    const Array handle = open("Alone");
    EXPECT_EQ(refusedCalculation(handle), "Failed to get list of compounds from property package: invalid data");
    EXPECT_EQ(package.calls("GetPhaseList"), 0);
    EXPECT_EQ(package.calls("SetMaterial"), 0);
    calculate(handle);
    EXPECT_EQ(package.calls("SetMaterial"), 1) << "nothing was made by the first attempt";
}

TEST_P(MaterialHandover, WaitsForThePhases)
{
    package.answer("GetPhaseList", CapeFailure(0x02), 1);
    const Array handle = open("Alone");
    EXPECT_EQ(refusedCalculation(handle), "Failed to get list of phases from property package: invalid data");
    EXPECT_EQ(package.calls("SetMaterial"), 0);
    calculate(handle);
    EXPECT_EQ(package.calls("SetMaterial"), 1) << "nothing was made by the first attempt";
    EXPECT_EQ(package.calls("GetCompoundList"), 1);
}

INSTANTIATE_TEST_SUITE_P(, MaterialHandover, testing::ValuesIn(calculations),
                         [](const auto &info) { return std::string(info.param.name); });

TEST_F(HandedMaterial, IsNotMadeByCommandsThatOnlyTell)
{
    const Array handle = open("Alone");
    for (const int code : {6, 7, 8, 10, 11, 12, 13, 14, 15})
        mustReturn(1, {Scalar(code), handle});
    mustReturn(1, {Scalar(9), handle, Text("Vapor")});
    package.constants = AnswerValues(ArrayOfVariants({RealVariant(1), RealVariant(2)}));
    mustReturn(1, {Scalar(16), handle, Text("criticalPressure")});
    EXPECT_EQ(package.calls("SetMaterial"), 0);
}

TEST_F(HandedMaterial, IsHeldByItsRecordAndByThePackage)
{
    calculateWith([](const MaterialClient &material) { EXPECT_EQ(ReferencesOn(material.get()), 2); });
    EXPECT_EQ(ReferencesOn(package.material.get()), 2);
    EXPECT_EQ(package.references(InterfaceId<ICapeThermoMaterialContext>), 0);
}

TEST_F(HandedMaterial, IsItsMaterialInterface)
{
    calculateWith([](const MaterialClient &material) {
        ComPointer<IUnknown> unknown;
        ComPointer<IDispatch> dispatch;
        ComPointer<ICapeThermoPhases> phases;
        EXPECT_EQ(unknown.queryFrom(material.get()), S_OK);
        EXPECT_EQ(dispatch.queryFrom(material.get()), S_OK);
        EXPECT_EQ(phases.queryFrom(material.get()), S_OK);
        const void *const identity = material.get();
        EXPECT_EQ(static_cast<const void *>(unknown.get()), identity);
        EXPECT_EQ(static_cast<const void *>(dispatch.get()), identity);
        EXPECT_NE(static_cast<const void *>(phases.get()), identity);
    });
}

TEST_F(HandedMaterial, AnswersTheListsExactlyAsThePackageGaveThem)
{
    package.compoundIds = TextArray({"x", "y", "z"}, 1);
    package.molecularWeights = NumberArray({18, 36, 54}, -3);
    package.formulae = NumberArray({4});
    package.compoundNames = LongVariant(7);
    package.boilingTemperatures = Variant();
    package.casNumbers = TextArray({"7732-18-5"});
    package.phaseLabels = TextArray({"V"});
    package.statesOfAggregation = TextArray({"Vapor"});
    package.keyCompounds = NumberArray({5});
    package.calcSinglePhase = [&](const SinglePhaseCall &request) {
        ComPointer<ICapeThermoCompounds> compounds;
        EXPECT_EQ(compounds.queryFrom(request.material.get()), S_OK);
        Variant ids, formulae, names, boiling, weights, cas;
        EXPECT_EQ(compounds->GetCompoundList(&ids.value, &formulae.value, &names.value, &boiling.value, &weights.value,
                                             &cas.value),
                  S_OK);
        EXPECT_EQ(TextsOf(ids.value), Names({"x", "y", "z"}));
        LONG lowerBound = 0;
        EXPECT_EQ(SafeArrayGetLBound(ids.value.parray, 1, &lowerBound), S_OK);
        EXPECT_EQ(lowerBound, 1);
        EXPECT_EQ(NumbersOf(formulae.value), std::vector<double>{4});
        EXPECT_EQ(names.value.vt, VT_I4);
        EXPECT_EQ(names.value.lVal, 7);
        EXPECT_EQ(boiling.value.vt, VT_EMPTY);
        EXPECT_EQ(NumbersOf(weights.value), (std::vector<double>{18, 36, 54}));
        EXPECT_EQ(TextsOf(cas.value), Names({"7732-18-5"}));
        LONG count = 0;
        EXPECT_EQ(compounds->GetNumCompounds(&count), S_OK);
        EXPECT_EQ(count, 3);

        ComPointer<ICapeThermoPhases> phases;
        EXPECT_EQ(phases.queryFrom(request.material.get()), S_OK);
        Variant labels, states, keys;
        EXPECT_EQ(phases->GetPhaseList(&labels.value, &states.value, &keys.value), S_OK);
        EXPECT_EQ(TextsOf(labels.value), Names({"V"}));
        EXPECT_EQ(TextsOf(states.value), Names({"Vapor"}));
        EXPECT_EQ(NumbersOf(keys.value), std::vector<double>{5});
        EXPECT_EQ(phases->GetNumPhases(&count), S_OK);
        EXPECT_EQ(count, 1);
        return request.material.setSinglePhase("volume", request.phase, "mole", {0.025});
    };
    mustReturn(1, {Scalar(22), Scalar(1), open("Alone"), Text("volume"), Scalar(350), Scalar(1e5),
                   Row({0.5, 0.25, 0.25}), Text("v")});
    EXPECT_EQ(package.calls("CalcSinglePhaseProp"), 1);
}
