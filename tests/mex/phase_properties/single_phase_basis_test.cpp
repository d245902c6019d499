// The basis of the results of command 22. The molecular weights are 18 and 36 g/mol, so the mean
// molar mass M is 0.027 kg/mol at mole fractions 1/2 and 1/2, and 0.024 kg/mol at mass fractions 1/2
// and 1/2, which are mole fractions 2/3 and 1/3.
#include "tests/support/package_test.h"

#include <cmath>

using namespace support;

namespace {

class SinglePhaseBasis : public PackageTest {
protected:
    // The result of one name for what the package stores.
    Rows result(const char *name, std::vector<StoredValue> values, const SinglePhaseInput &input = {})
    {
        package.calcSinglePhase = StoreSinglePhase(std::move(values));
        SinglePhaseInput named = input;
        named.names = Text(name);
        return mustReturn(1, singlePhase(named))[0].cellMatrix(0);
    }
    void expectFailure(const char *name, std::vector<StoredValue> values, const std::string &message)
    {
        package.calcSinglePhase = StoreSinglePhase(std::move(values));
        EXPECT_EQ(refusal(1, singlePhase({.names = Text(name)})), message);
    }
    void setMolecularWeights(std::vector<double> weights) { package.molecularWeights = NumberArray(weights); }
};

} // namespace

TEST_F(SinglePhaseBasis, OfMoleLeavesAValuePerMoleAsItIs)
{
    EXPECT_EQ(result("enthalpy", {{"enthalpy", "mole", {-1234.5}}}), (Rows{{-1234.5}}));
    EXPECT_EQ(result("density", {{"density", "mole", {40.25}}}), (Rows{{40.25}}));
}

TEST_F(SinglePhaseBasis, OfMassLeavesAValuePerMassAsItIs)
{
    useBasis("mass");
    EXPECT_EQ(result("enthalpy", {{"enthalpy", "mass", {-1234.5}}}), (Rows{{-1234.5}}));
    EXPECT_EQ(result("density", {{"density", "mass", {40.25}}}), (Rows{{40.25}}));
}

TEST_F(SinglePhaseBasis, OfMassConvertsAnEnthalpyPerMole)
{
    useBasis("mass");
    // 2400 J/mol / 0.024 kg/mol
    ExpectNear(result("enthalpy", {{"enthalpy", "mole", {2400}}}), {{100000}});
    // The pure compound A: 1800 J/mol / 0.018 kg/mol
    ExpectNear(result("enthalpy", {{"enthalpy", "mole", {1800}}}, {.compositions = Row({1, 0})}), {{100000}});
}

TEST_F(SinglePhaseBasis, OfMassConvertsADensityPerMole)
{
    useBasis("mass");
    // 1000 mol/m3 * 0.024 kg/mol
    ExpectNear(result("density", {{"density", "mole", {1000}}}), {{24}});
}

TEST_F(SinglePhaseBasis, OfMoleConvertsAnEnthalpyPerMass)
{
    // 100000 J/kg * 0.027 kg/mol
    ExpectNear(result("enthalpy", {{"enthalpy", "mass", {100000}}}), {{2700}});
}

TEST_F(SinglePhaseBasis, OfMoleConvertsADensityPerMass)
{
    // 27 kg/m3 / 0.027 kg/mol
    ExpectNear(result("density", {{"density", "mass", {27}}}), {{1000}});
}

TEST_F(SinglePhaseBasis, ConvertsThreeCompounds)
{
    makeTernary();
    // Mole fractions 1/2, 1/4, 1/4 of 18, 36, 54 g/mol: 0.0315 kg/mol
    ExpectNear(result("volume", {{"volume", "mass", {2}}}, {.compositions = Row({0.5, 0.25, 0.25})}), {{0.063}});
}

TEST_F(SinglePhaseBasis, ConvertsWithTheCompositionOfEachCondition)
{
    // M is 0.018, 0.027 and 0.036 kg/mol.
    ExpectNear(result("volume", {{"volume", "mass", {1000}}}, {.compositions = Matrix({{1, 0}, {0.5, 0.5}, {0, 1}})}),
               {{18}, {27}, {36}});
}

TEST_F(SinglePhaseBasis, LeavesWhatHasNoBasis)
{
    useBasis("mass");
    EXPECT_EQ(result("viscosity", {{"viscosity", "", {0.001}}}), (Rows{{0.001}}));
    EXPECT_EQ(result("fugacity.DmolFraction", {{"fugacity.DmolFraction", "", {1, 2, 3, 4}}}), (Rows{{1, 3}, {2, 4}}));
    EXPECT_EQ(result("fugacity.Dmoles", {{"fugacity.Dmoles", "", {1, 2, 3, 4}}}), (Rows{{1, 3}, {2, 4}}));
    EXPECT_EQ(result("molecularWeight", {{"molecularWeight", "", {27}}}), (Rows{{27}}));
}

TEST_F(SinglePhaseBasis, ScalesDerivativesWithRespectToTemperatureAndPressure)
{
    useBasis("mass");
    ExpectNear(result("enthalpy.Dtemperature", {{"enthalpy.Dtemperature", "mole", {24}}}), {{1000}});
    ExpectNear(result("density.dPRESSURE", {{"density.Dpressure", "mole", {0.5}}}), {{0.012}});
}

TEST_F(SinglePhaseBasis, OfTheStoredValueMayChangeFromConditionToCondition)
{
    package.calcSinglePhase = [&](const SinglePhaseCall &request) {
        const bool first = package.calls("CalcSinglePhaseProp") == 1;
        return request.material.setSinglePhase("enthalpy", request.phase, first ? "mass" : "mole", {2700});
    };
    ExpectNear(mustReturn(1, singlePhase({.names = Text("enthalpy"), .pressures = Column({1, 2})}))[0].cellMatrix(0),
               {{72.9}, {2700}});
}

TEST_F(SinglePhaseBasis, IsStatedForTheCompositionThatThePackageReads)
{
    useBasis("mass");
    Conditions seen;
    package.calcSinglePhase = [&](const SinglePhaseCall &request) {
        EXPECT_EQ(request.material.getConditions(request.phase, seen), S_OK);
        return request.material.setSinglePhase("volume", request.phase, "mass", {1});
    };
    mustReturn(1, singlePhase());
    ExpectNear({seen.composition}, {{2.0 / 3, 1.0 / 3}});
    useBasis("mole");
    mustReturn(1, singlePhase());
    EXPECT_EQ(seen.composition, (std::vector<double>{0.5, 0.5}));
}

TEST_F(SinglePhaseBasis, OfMoleFractionDerivativeHasThePackageCalculateTheBaseProperty)
{
    std::vector<WideString> asked;
    package.calcSinglePhase = [&](const SinglePhaseCall &request) {
        asked = request.properties;
        return request.material.setSinglePhase("enthalpy.DmolFraction", request.phase, "mole", {1, 2});
    };
    // No output shows the base property; in the right basis it needn't even be there.
    const CallResult result = mustReturn(1, singlePhase({.names = Text("Enthalpy.dMolFraction")}));
    EXPECT_EQ(result[0].count(), 1u);
    EXPECT_EQ(result[0].cellMatrix(0), (Rows{{1, 2}}));
    EXPECT_EQ(asked, Names({"Enthalpy.dMolFraction", "enthalpy"}));
}

TEST_F(SinglePhaseBasis, OfSeveralMoleFractionDerivativesNamesTheBasePropertyForEach)
{
    std::vector<WideString> asked;
    const auto store = StoreSinglePhase({{"enthalpy", "mole", {1}},
                                         {"enthalpy.DmolFraction", "mole", {1, 2}},
                                         {"fugacity.DmolFraction", "", {1, 2, 3, 4}}});
    package.calcSinglePhase = [&](const SinglePhaseCall &request) {
        asked = request.properties;
        return store(request);
    };
    const CallResult result =
        mustReturn(1, singlePhase({.outputs = Scalar(4),
                                   .names = Text("enthalpy enthalpy.DmolFraction "
                                                 "enthalpy.DmolFraction fugacity.DmolFraction")}));
    EXPECT_EQ(result[0].count(), 4u);
    EXPECT_EQ(asked, Names({"enthalpy", "enthalpy.DmolFraction", "enthalpy.DmolFraction", "fugacity.DmolFraction",
                            "enthalpy", "enthalpy"}));
}

TEST_F(SinglePhaseBasis, OfMassAppliesTheChainRuleToAMoleFractionDerivativePerMole)
{
    useBasis("mass");
    // dH/dx / M - H * MW / 1000 / M2 with M = 0.024, M2 = 0.000576, H = 2400:
    // 1200 / M = 50000 less 2400 * 0.018 / M2 = 75000; 2400 / M = 100000 less 150000
    ExpectNear(result("enthalpy.DmolFraction",
                      {{"enthalpy", "mole", {2400}}, {"enthalpy.DmolFraction", "mole", {1200, 2400}}}),
               {{-25000, -50000}});
    // d(rho M)/dx = M drho/dx + rho MW / 1000: 0.24 + 18 and 0.48 + 36
    ExpectNear(
        result("density.DmolFraction", {{"density", "mole", {1000}}, {"density.DmolFraction", "mole", {10, 20}}}),
        {{18.24, 36.48}});
}

TEST_F(SinglePhaseBasis, OfMoleAppliesTheChainRuleToAMoleFractionDerivativePerMass)
{
    // M dh/dx + h MW / 1000 with M = 0.027, h = 1000: 2.7 + 18 and 5.4 + 36
    ExpectNear(
        result("enthalpy.DmolFraction", {{"enthalpy", "mass", {1000}}, {"enthalpy.DmolFraction", "mass", {100, 200}}}),
        {{20.7, 41.4}});
    // drho/dx / M - rho MW / 1000 / M2 with M2 = 0.000729, rho = 729: 27 / M = 1000 less 18000; 2000 less 36000
    ExpectNear(result("density.DmolFraction", {{"density", "mass", {729}}, {"density.DmolFraction", "mass", {27, 54}}}),
               {{-17000, -34000}});
}

TEST_F(SinglePhaseBasis, ScalesAMoleFractionDerivativeOnlyWhenTheBaseValueIsZero)
{
    ExpectNear(
        result("enthalpy.DmolFraction", {{"enthalpy", "mass", {0}}, {"enthalpy.DmolFraction", "mass", {100, 200}}}),
        {{2.7, 5.4}});
}

TEST_F(SinglePhaseBasis, AppliesTheChainRuleAtEachCondition)
{
    // With pure compounds: M is 0.018 and 0.036; h = 1000
    ExpectNear(result("enthalpy.DmolFraction",
                      {{"enthalpy", "mass", {1000}}, {"enthalpy.DmolFraction", "mass", {100, 200}}},
                      {.compositions = Matrix({{1, 0}, {0, 1}})}),
               {{1.8 + 18, 3.6 + 36}, {3.6 + 18, 7.2 + 36}});
}

TEST_F(SinglePhaseBasis, OfAMoleNumberDerivativeMustBeTheDefault)
{
    EXPECT_EQ(result("enthalpy.Dmoles", {{"enthalpy.Dmoles", "mole", {1, 2}}}), (Rows{{1, 2}}));
    expectFailure("ENTHALPY.dmoles", {{"enthalpy.Dmoles", "mass", {1, 2}}},
                  "Mole/mass conversion for ENTHALPY.dmoles is not supported");
    useBasis("mass");
    EXPECT_EQ(result("enthalpy.Dmoles", {{"enthalpy.Dmoles", "mass", {1, 2}}}), (Rows{{1, 2}}));
    expectFailure("enthalpy.Dmoles", {{"enthalpy.Dmoles", "mole", {1, 2}}},
                  "Mole/mass conversion for enthalpy.Dmoles is not supported");
}

TEST_F(SinglePhaseBasis, OfAMoleFractionDerivativeNeedsTheBaseProperty)
{
    expectFailure("ENTHALPY.DmolFraction", {{"enthalpy.DmolFraction", "mass", {1, 2}}},
                  "Property value for enthalpy was not set by property package during calculation");
}

TEST_F(SinglePhaseBasis, OfAMoleFractionDerivativeMustBeThatOfTheBaseProperty)
{
    expectFailure("ENTHALPY.DmolFraction", {{"enthalpy", "mole", {1}}, {"enthalpy.DmolFraction", "mass", {1, 2}}},
                  "Property value for ENTHALPY.DmolFraction cannot be mole/mass supported; the base property was set "
                  "in a different basis, which is not supported");
}

TEST_F(SinglePhaseBasis, ConversionNeedsTheWholeComposition)
{
    const char *message = "One or more missing composition values in basis conversion";
    package.calcSinglePhase = StoreSinglePhase({{"enthalpy", "mass", {1}}, {"enthalpy.DmolFraction", "mass", {1, 2}}});
    for (const char *name : {"enthalpy", "enthalpy.DmolFraction"})
        for (const Array &composition : {Row({0.5, notANumber}), Row({undefinedNumber, 1})})
            EXPECT_EQ(refusal(1, singlePhase({.names = Text(name), .compositions = composition})), message);
}

TEST_F(SinglePhaseBasis, ThatIsTheStoredOneNeedsNoComposition)
{
    EXPECT_EQ(result("enthalpy", {{"enthalpy", "mole", {5}}}, {.compositions = Row({0.5, notANumber})}), (Rows{{5}}));
}

TEST_F(SinglePhaseBasis, ConversionOfAClearedMaterialFails)
{
    package.calcSinglePhase = [](const SinglePhaseCall &request) {
        request.material.get()->ClearAllProps();
        return request.material.setSinglePhase("enthalpy", request.phase, "mass", {1});
    };
    EXPECT_EQ(refusal(1, singlePhase({.names = Text("enthalpy")})),
              "One or more missing composition values in basis conversion");
}

TEST_F(SinglePhaseBasis, ConversionOfNoMassAtAllFails)
{
    useBasis("mass");
    package.calcSinglePhase = StoreSinglePhase({{"enthalpy", "mole", {1}}});
    for (const Array &composition : {Row({0, 0}), Row({-1, -1})})
        EXPECT_EQ(refusal(1, singlePhase({.names = Text("enthalpy"), .compositions = composition})),
                  "Zero or negative total composition in basis conversion");
}

TEST_F(SinglePhaseBasis, ConversionNeedsAllMolecularWeights)
{
    setMolecularWeights({18, notANumber});
    expectFailure("enthalpy", {{"enthalpy", "mass", {1}}}, "One or more missing molecular weights in basis conversion");
    useBasis("mass");
    expectFailure("enthalpy", {{"enthalpy", "mole", {1}}}, "One or more missing molecular weights in basis conversion");
    EXPECT_EQ(result("enthalpy", {{"enthalpy", "mass", {7}}}), (Rows{{7}}));
}

TEST_F(SinglePhaseBasis, OfUnnormalizedMoleFractionsIsNotNormalized)
{
    // 0.018 * 1 + 0.036 * 1 = 0.054
    ExpectNear(result("volume", {{"volume", "mass", {1000}}}, {.compositions = Row({1, 1})}), {{54}});
    // Mass fractions are normalized on their way to mole fractions: M is 0.024 as for 1/2 and 1/2.
    useBasis("mass");
    ExpectNear(result("density", {{"density", "mole", {1000}}}, {.compositions = Row({1, 1})}), {{24}});
}

TEST_F(SinglePhaseBasis, OfACompositionThatThePackageWritesIsTakenForTheDefault)
{
    const auto writeComposition = [this](const char *compositionBasis, const char *valueBasis, double value) {
        package.calcSinglePhase = [=](const SinglePhaseCall &request) {
            EXPECT_EQ(request.material.setSinglePhase("fraction", request.phase, compositionBasis, {0.2, 0.8}), S_OK);
            return request.material.setSinglePhase("volume", request.phase, valueBasis, {value});
        };
    };
    // Mass fractions count as mole fractions: 0.2 * 0.018 + 0.8 * 0.036 = 0.0324 kg/mol
    writeComposition("mass", "mass", 1000);
    ExpectNear(mustReturn(1, singlePhase())[0].cellMatrix(0), {{32.4}});
    // and mole fractions as mass fractions, which are mole fractions 1/3 and 2/3: 0.03 kg/mol
    useBasis("mass");
    writeComposition("mole", "mole", 0.03);
    ExpectNear(mustReturn(1, singlePhase())[0].cellMatrix(0), {{1}});
}

TEST_F(SinglePhaseBasis, ConversionThatFailsAtTheSecondConditionEndsTheCommand)
{
    package.calcSinglePhase = StoreSinglePhase({{"volume", "mass", {1000}}});
    EXPECT_EQ(refusal(1, singlePhase({.compositions = Matrix({{0.5, 0.5}, {notANumber, 1}})})),
              "One or more missing composition values in basis conversion");
    ExpectNear(mustReturn(1, singlePhase())[0].cellMatrix(0), {{27}});
}

TEST_F(SinglePhaseBasis, ConvertsMissingValuesToMissingOnes)
{
    const Rows values = result("volume", {{"volume", "mass", {notANumber}}});
    EXPECT_TRUE(std::isnan(values.at(0).at(0)));
}
