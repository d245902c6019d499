#include "properties/vocabulary.h"

#include <algorithm>
#include <cstddef>
#include <cstdint>
#include <set>
#include <vector>

#include <gtest/gtest.h>

namespace {

struct Table {
    PropertyKind kind;
    const PropertyTable *rows;
    std::size_t size;
};

const Table tables[] = {
    {CompoundConstant, &constantProperties, 43},
    {TemperatureDependent, &tDependentProperties, 33},
    {PressureDependent, &pDependentProperties, 4},
    {SinglePhase, &singlePhaseProperties, 38},
    {TwoPhase, &twoPhaseProperties, 3},
};

class Vocabulary : public testing::Test {
protected:
    void SetUp() override
    {
        ClearPropertyTables();
        BuildPropertyTables();
    }
    void TearDown() override { ClearPropertyTables(); }
};

const PropertyInfo *rowOf(const PropertyTable &table, LPCWSTR name)
{
    const auto place = table.find(WSTRMapKeyString(name));
    return place == table.end() ? nullptr : place->second;
}

bool sameText(LPCWSTR expected, LPCWSTR actual)
{
    return expected && actual ? WideString(expected) == actual : expected == actual;
}

// The columns of a row, for rows of all kinds.
testing::AssertionResult hasColumns(const PropertyTable &table, LPCWSTR name, std::int32_t basisPower,
                                    std::int32_t dimensions, LPCWSTR massUnit, LPCWSTR moleUnit,
                                    std::int32_t mixable = 0, std::int32_t specific = 0)
{
    const PropertyInfo *const row = rowOf(table, name);
    if (!row)
        return testing::AssertionFailure() << "no row " << testing::PrintToString(WideString(name));
    if (!sameText(name, row->name))
        return testing::AssertionFailure() << "case of " << testing::PrintToString(WideString(row->name));
    if (basisPower != row->basisPower || dimensions != row->dimensions || mixable != row->mixable ||
        specific != row->specific)
        return testing::AssertionFailure()
               << "numbers of " << testing::PrintToString(WideString(name)) << " are " << row->basisPower << " "
               << row->dimensions << " " << row->mixable << " " << row->specific;
    if (!sameText(massUnit, row->massUnit) || !sameText(moleUnit, row->moleUnit))
        return testing::AssertionFailure() << "units of " << testing::PrintToString(WideString(name));
    return testing::AssertionSuccess();
}

std::vector<const PropertyInfo *> rowsWhere(const PropertyTable &table, bool (*condition)(const PropertyInfo &))
{
    std::vector<const PropertyInfo *> rows;
    for (const auto &[key, row] : table)
        if (condition(*row))
            rows.push_back(row);
    return rows;
}

std::set<WideString> namesWhere(const PropertyTable &table, bool (*condition)(const PropertyInfo &))
{
    std::set<WideString> names;
    for (const PropertyInfo *row : rowsWhere(table, condition))
        names.insert(row->name);
    return names;
}

TEST_F(Vocabulary, HasAsManyRowsAsItsTablesList)
{
    for (const Table &table : tables)
        EXPECT_EQ(table.size, table.rows->size()) << table.kind;
}

TEST_F(Vocabulary, StoresEachRowUnderItsLowerCasedNameInTheTableOfItsKind)
{
    for (const Table &table : tables)
        for (const auto &[key, row] : *table.rows) {
            EXPECT_EQ(table.kind, row->kind);
            EXPECT_TRUE(sameText(WSTRMapKeyString(row->name).GetKeyText(), key.GetKeyText()));
        }
}

TEST_F(Vocabulary, GivesAUnitInBothBasesOrInNone)
{
    for (const Table &table : tables)
        for (const auto &[key, row] : *table.rows)
            EXPECT_EQ(row->massUnit == nullptr, row->moleUnit == nullptr) << WideString(row->name).size();
}

// A row without basis has one unit; one with a basis differs by kg against mol.
TEST_F(Vocabulary, GivesOneUnitToTheRowsWithoutBasisAndTwoToTheOthers)
{
    for (const Table &table : tables)
        for (const auto &[key, row] : *table.rows)
            EXPECT_EQ(row->basisPower == 0, sameText(row->massUnit, row->moleUnit))
                << testing::PrintToString(WideString(row->name));
}

TEST_F(Vocabulary, HasOneValueForEachCompoundInAllPureCompoundRows)
{
    for (const Table &table : {tables[0], tables[1], tables[2]})
        EXPECT_EQ(table.size,
                  rowsWhere(*table.rows, [](const PropertyInfo &row) { return row.dimensions == 1; }).size());
}

TEST_F(Vocabulary, MarksMixableAndSpecificOnlyAmongSinglePhaseRows)
{
    for (const Table &table : tables) {
        const auto marked =
            rowsWhere(*table.rows, [](const PropertyInfo &row) { return row.mixable != 0 || row.specific != 0; });
        EXPECT_EQ(table.kind == SinglePhase, !marked.empty()) << table.kind;
    }
}

TEST_F(Vocabulary, CallsSpecificExactlyTheSinglePhaseRowsWithPowerMinusOne)
{
    for (const auto &[key, row] : singlePhaseProperties)
        EXPECT_EQ(row->basisPower == -1, row->specific != 0) << testing::PrintToString(WideString(row->name));
    EXPECT_EQ(18u, rowsWhere(singlePhaseProperties, [](const PropertyInfo &row) { return row.specific != 0; }).size());
}

TEST_F(Vocabulary, CallsMixableTheTenThatAddUpOverPhases)
{
    const std::set<WideString> expected = {OLESTR("enthalpy"),    OLESTR("enthalpyF"),       OLESTR("enthalpyNF"),
                                           OLESTR("gibbsEnergy"), OLESTR("helmholtzEnergy"), OLESTR("internalEnergy"),
                                           OLESTR("entropy"),     OLESTR("entropyF"),        OLESTR("entropyNF"),
                                           OLESTR("volume")};
    EXPECT_EQ(expected, namesWhere(singlePhaseProperties, [](const PropertyInfo &row) { return row.mixable != 0; }));
}

TEST_F(Vocabulary, HasOneMatrixPropertyAndSixVectorsAmongSinglePhaseRows)
{
    const std::set<WideString> vectors = {
        OLESTR("activity"),    OLESTR("activityCoefficient"),    OLESTR("fugacityCoefficient"),
        OLESTR("logFugacity"), OLESTR("logFugacityCoefficient"), OLESTR("fugacity")};
    EXPECT_EQ(vectors, namesWhere(singlePhaseProperties, [](const PropertyInfo &row) { return row.dimensions == 1; }));
    const std::set<WideString> matrices = {OLESTR("diffusionCoefficient")};
    EXPECT_EQ(matrices, namesWhere(singlePhaseProperties, [](const PropertyInfo &row) { return row.dimensions == 2; }));
}

// What the chain rule counts on.
TEST_F(Vocabulary, HasABasisOnlyInScalarSinglePhaseRows)
{
    EXPECT_TRUE(rowsWhere(singlePhaseProperties, [](const PropertyInfo &row) {
                    return row.basisPower != 0 && row.dimensions != 0;
                }).empty());
}

TEST_F(Vocabulary, HasTheNumbersOfRowsOfEachPower)
{
    struct Counts {
        const PropertyTable *table;
        std::size_t divided, none, multiplied;
    };
    // constants: 3 + 15 + 1 divided, 2 densities; temperature dependent: 5 + 5 + 7 divided
    for (const Counts &counts : {Counts{&constantProperties, 19, 22, 2}, Counts{&tDependentProperties, 17, 16, 0},
                                 Counts{&pDependentProperties, 0, 4, 0}, Counts{&singlePhaseProperties, 18, 19, 1},
                                 Counts{&twoPhaseProperties, 0, 3, 0}}) {
        const auto &table = *counts.table;
        EXPECT_EQ(counts.divided,
                  rowsWhere(table, [](const PropertyInfo &row) { return row.basisPower == -1; }).size());
        EXPECT_EQ(counts.none, rowsWhere(table, [](const PropertyInfo &row) { return row.basisPower == 0; }).size());
        EXPECT_EQ(counts.multiplied,
                  rowsWhere(table, [](const PropertyInfo &row) { return row.basisPower == 1; }).size());
    }
}

TEST_F(Vocabulary, HasTheCompoundConstantsOfEachGroup)
{
    const PropertyTable &table = constantProperties;
    for (const LPCWSTR name : {OLESTR("casRegistryNumber"), OLESTR("chemicalFormula"), OLESTR("iupacName"),
                               OLESTR("SMILESformula"), OLESTR("acentricFactor"), OLESTR("associationParameter"),
                               OLESTR("charge"), OLESTR("criticalCompressibilityFactor")})
        EXPECT_TRUE(hasColumns(table, name, 0, 1, nullptr, nullptr));
    for (const LPCWSTR name : {OLESTR("bornRadius"), OLESTR("lengthLennardJones")})
        EXPECT_TRUE(hasColumns(table, name, 0, 1, OLESTR("m"), OLESTR("m")));
    for (const LPCWSTR name : {OLESTR("criticalDensity"), OLESTR("liquidDensityAt25C")})
        EXPECT_TRUE(hasColumns(table, name, 1, 1, OLESTR("kg / m3"), OLESTR("mol / m3")));
    for (const LPCWSTR name : {OLESTR("criticalPressure"), OLESTR("triplePointPressure")})
        EXPECT_TRUE(hasColumns(table, name, 0, 1, OLESTR("Pa"), OLESTR("Pa")));
    for (const LPCWSTR name : {OLESTR("criticalTemperature"), OLESTR("energyLennardJones"),
                               OLESTR("normalBoilingPoint"), OLESTR("normalFreezingPoint")})
        EXPECT_TRUE(hasColumns(table, name, 0, 1, OLESTR("K"), OLESTR("K")));
    for (const LPCWSTR name : {OLESTR("criticalVolume"), OLESTR("liquidVolumeAt25C"), OLESTR("vanderwaalsVolume")})
        EXPECT_TRUE(hasColumns(table, name, -1, 1, OLESTR("m3 / kg"), OLESTR("m3 / mol")));
    EXPECT_TRUE(hasColumns(table, OLESTR("diffusionVolume"), 0, 1, OLESTR("m3"), OLESTR("m3")));
    EXPECT_TRUE(hasColumns(table, OLESTR("dipoleMoment"), 0, 1, OLESTR("C m"), OLESTR("C m")));
    EXPECT_TRUE(hasColumns(table, OLESTR("vanderwaalsArea"), -1, 1, OLESTR("m2 / kg"), OLESTR("m2 / mol")));
}

TEST_F(Vocabulary, HasTheFormationAndPhaseChangeConstantsWithoutKelvinInTheirUnits)
{
    const std::set<WideString> expected = {OLESTR("heatOfFusionAtNormalFreezingPoint"),
                                           OLESTR("heatOfVaporizationAtNormalBoilingPoint"),
                                           OLESTR("idealGasEnthalpyOfFormationAt25C"),
                                           OLESTR("idealGasGibbsFreeEnergyOfFormationAt25C"),
                                           OLESTR("standardEntropyGas"),
                                           OLESTR("standardEntropyLiquid"),
                                           OLESTR("standardEntropySolid"),
                                           OLESTR("standardEnthalpyAqueousDilution"),
                                           OLESTR("standardFormationEnthalpyGas"),
                                           OLESTR("standardFormationEnthalpyLiquid"),
                                           OLESTR("standardFormationEnthalpySolid"),
                                           OLESTR("standardFormationGibbsEnergyGas"),
                                           OLESTR("standardFormationGibbsEnergyLiquid"),
                                           OLESTR("standardFormationGibbsEnergySolid"),
                                           OLESTR("standardGibbsAqueousDilution")};
    for (const WideString &name : expected)
        EXPECT_TRUE(hasColumns(constantProperties, name.c_str(), -1, 1, OLESTR("J / kg"), OLESTR("J / mol")));
    EXPECT_EQ(expected, namesWhere(constantProperties,
                                   [](const PropertyInfo &row) { return sameText(OLESTR("J / kg"), row.massUnit); }));
}

TEST_F(Vocabulary, KeepsTheOddUnitsOfTheConstants)
{
    EXPECT_TRUE(hasColumns(constantProperties, OLESTR("gyrationRadius"), 0, 1, OLESTR("M"), OLESTR("M")));
    EXPECT_TRUE(hasColumns(constantProperties, OLESTR("parachor"), 0, 1, OLESTR("m3 kg0.25 / (s 0.5 mol)"),
                           OLESTR("m3 kg0.25 / (s 0.5 mol)")));
}

TEST_F(Vocabulary, HasTheTemperatureDependentRowsOfEachGroup)
{
    const PropertyTable &table = tDependentProperties;
    for (const LPCWSTR name :
         {OLESTR("cpAqueousInfiniteDilution"), OLESTR("heatCapacityOfLiquid"), OLESTR("heatCapacityOfSolid"),
          OLESTR("idealGasEntropy"), OLESTR("idealGasHeatCapacity")})
        EXPECT_TRUE(hasColumns(table, name, -1, 1, OLESTR("J / kg / K"), OLESTR("J / mol / K")));
    for (const LPCWSTR name : {OLESTR("dielectricConstant"), OLESTR("fugacityCoefficientOfVapor")})
        EXPECT_TRUE(hasColumns(table, name, 0, 1, nullptr, nullptr));
    EXPECT_TRUE(hasColumns(table, OLESTR("expansivity"), 0, 1, OLESTR("1 / K"), OLESTR("1 / K")));
    for (const LPCWSTR name :
         {OLESTR("glassTransitionPressure"), OLESTR("meltingPressure"), OLESTR("solidSolidPhaseTransitionPressure"),
          OLESTR("sublimationPressure"), OLESTR("vaporPressure")})
        EXPECT_TRUE(hasColumns(table, name, 0, 1, OLESTR("Pa"), OLESTR("Pa")));
    for (const LPCWSTR name :
         {OLESTR("heatOfFusion"), OLESTR("heatOfSublimation"), OLESTR("heatOfSolidSolidPhaseTransition"),
          OLESTR("heatOfVaporization"), OLESTR("idealGasEnthalpy")})
        EXPECT_TRUE(hasColumns(table, name, -1, 1, OLESTR("J / kg"), OLESTR("J / mol")));
    for (const LPCWSTR name : {OLESTR("selfDiffusionCoefficientGas"), OLESTR("selfDiffusionCoefficientLiquid")})
        EXPECT_TRUE(hasColumns(table, name, 0, 1, OLESTR("m2 / s"), OLESTR("m2 / s")));
    for (const LPCWSTR name : {OLESTR("thermalConductivityOfLiquid"), OLESTR("thermalConductivityOfSolid"),
                               OLESTR("thermalConductivityOfVapor")})
        EXPECT_TRUE(hasColumns(table, name, 0, 1, OLESTR("W / m / K"), OLESTR("W / m / K")));
    for (const LPCWSTR name :
         {OLESTR("virialCoefficient"), OLESTR("volumeChangeUponMelting"),
          OLESTR("volumeChangeUponSolidSolidPhaseTransition"), OLESTR("volumeChangeUponSublimation"),
          OLESTR("volumeChangeUponVaporization"), OLESTR("volumeOfLiquid"), OLESTR("volumeOfSolid")})
        EXPECT_TRUE(hasColumns(table, name, -1, 1, OLESTR("m3 / kg"), OLESTR("m3 / mol")));
    for (const LPCWSTR name : {OLESTR("viscosityOfLiquid"), OLESTR("viscosityOfVapor")})
        EXPECT_TRUE(hasColumns(table, name, 0, 1, OLESTR("Pa s"), OLESTR("Pa s")));
}

TEST_F(Vocabulary, HasTheFourPressureDependentRows)
{
    for (const LPCWSTR name : {OLESTR("boilingPointTemperature"), OLESTR("glassTransitionTemperature"),
                               OLESTR("meltingTemperature"), OLESTR("solidSolidPhaseTransitionTemperature")})
        EXPECT_TRUE(hasColumns(pDependentProperties, name, 0, 1, OLESTR("K"), OLESTR("K")));
}

TEST_F(Vocabulary, HasTheSinglePhaseRowsWithoutBasis)
{
    const PropertyTable &table = singlePhaseProperties;
    for (const LPCWSTR name : {OLESTR("activity"), OLESTR("activityCoefficient"), OLESTR("fugacityCoefficient"),
                               OLESTR("logFugacity"), OLESTR("logFugacityCoefficient")})
        EXPECT_TRUE(hasColumns(table, name, 0, 1, nullptr, nullptr));
    for (const LPCWSTR name :
         {OLESTR("compressibilityFactor"), OLESTR("dissociationConstant"), OLESTR("meanActivityCoefficient"),
          OLESTR("osmoticCoefficient"), OLESTR("pH"), OLESTR("pOH")})
        EXPECT_TRUE(hasColumns(table, name, 0, 0, nullptr, nullptr));
    EXPECT_TRUE(hasColumns(table, OLESTR("compressibility"), 0, 0, OLESTR("1 / Pa"), OLESTR("1 / Pa")));
    EXPECT_TRUE(hasColumns(table, OLESTR("diffusionCoefficient"), 0, 2, OLESTR("m2 / s"), OLESTR("m2 / s")));
    EXPECT_TRUE(hasColumns(table, OLESTR("fugacity"), 0, 1, OLESTR("Pa"), OLESTR("Pa")));
    EXPECT_TRUE(hasColumns(table, OLESTR("jouleThomsonCoefficient"), 0, 0, OLESTR("K / Pa"), OLESTR("K / Pa")));
    EXPECT_TRUE(hasColumns(table, OLESTR("speedOfSound"), 0, 0, OLESTR("m / s"), OLESTR("m / s")));
    EXPECT_TRUE(hasColumns(table, OLESTR("thermalConductivity"), 0, 0, OLESTR("W / m / K"), OLESTR("W / m / K")));
    EXPECT_TRUE(hasColumns(table, OLESTR("viscosity"), 0, 0, OLESTR("Pa s"), OLESTR("Pa s")));
}

TEST_F(Vocabulary, HasTheSinglePhaseRowsWithABasis)
{
    const PropertyTable &table = singlePhaseProperties;
    EXPECT_TRUE(hasColumns(table, OLESTR("density"), 1, 0, OLESTR("kg / m3"), OLESTR("mol / m3")));
    for (const LPCWSTR name : {OLESTR("enthalpy"), OLESTR("enthalpyF"), OLESTR("enthalpyNF"), OLESTR("gibbsEnergy"),
                               OLESTR("helmholtzEnergy"), OLESTR("internalEnergy")})
        EXPECT_TRUE(hasColumns(table, name, -1, 0, OLESTR("J / kg"), OLESTR("J / mol"), 1, 1));
    for (const LPCWSTR name : {OLESTR("entropy"), OLESTR("entropyF"), OLESTR("entropyNF")})
        EXPECT_TRUE(hasColumns(table, name, -1, 0, OLESTR("J / kg / K"), OLESTR("J / mol / K"), 1, 1));
    for (const LPCWSTR name : {OLESTR("excessEnthalpy"), OLESTR("excessGibbsEnergy"), OLESTR("excessHelmholtzEnergy"),
                               OLESTR("excessInternalEnergy")})
        EXPECT_TRUE(hasColumns(table, name, -1, 0, OLESTR("J / kg"), OLESTR("J / mol"), 0, 1));
    for (const LPCWSTR name : {OLESTR("excessEntropy"), OLESTR("heatCapacityCp"), OLESTR("heatCapacityCv")})
        EXPECT_TRUE(hasColumns(table, name, -1, 0, OLESTR("J / kg / K"), OLESTR("J / mol / K"), 0, 1));
    EXPECT_TRUE(hasColumns(table, OLESTR("excessVolume"), -1, 0, OLESTR("m3 / kg"), OLESTR("m3 / mol"), 0, 1));
    EXPECT_TRUE(hasColumns(table, OLESTR("volume"), -1, 0, OLESTR("m3 / kg"), OLESTR("m3 / mol"), 1, 1));
}

TEST_F(Vocabulary, HasTheThreeTwoPhaseRows)
{
    EXPECT_TRUE(hasColumns(twoPhaseProperties, OLESTR("kvalue"), 0, 1, nullptr, nullptr));
    EXPECT_TRUE(hasColumns(twoPhaseProperties, OLESTR("logKvalue"), 0, 1, nullptr, nullptr));
}

TEST_F(Vocabulary, FindsMolecularWeightInAnyCaseAmongConstantsAndSinglePhaseRows)
{
    EXPECT_TRUE(
        hasColumns(constantProperties, OLESTR("molecularWeight"), 0, 1, OLESTR("gr / mol"), OLESTR("gr / mol")));
    EXPECT_TRUE(
        hasColumns(singlePhaseProperties, OLESTR("molecularWeight"), 0, 0, OLESTR("gr / mol"), OLESTR("gr / mol")));
    for (const LPCWSTR name : {OLESTR("MOLECULARWEIGHT"), OLESTR("molecularweight"), OLESTR("MolecularWeight")}) {
        EXPECT_EQ(rowOf(constantProperties, OLESTR("molecularWeight")), rowOf(constantProperties, name));
        EXPECT_EQ(rowOf(singlePhaseProperties, OLESTR("molecularWeight")), rowOf(singlePhaseProperties, name));
    }
}

TEST_F(Vocabulary, FindsTheTriplePointTemperatureOnlyWithItsBlank)
{
    EXPECT_EQ(nullptr, rowOf(constantProperties, OLESTR("triplePointTemperature")));
    EXPECT_TRUE(hasColumns(constantProperties, OLESTR("triplePointTemperature "), 0, 1, OLESTR("K"), OLESTR("K")));
    EXPECT_NE(nullptr, rowOf(constantProperties, OLESTR("triplepointtemperature ")));
}

TEST_F(Vocabulary, FindsSurfaceTensionOnlyAmongTwoPhaseRowsAndThatOfTheSaturatedLiquidOnlyByTemperature)
{
    for (const Table &table : tables) {
        EXPECT_EQ(table.kind == TwoPhase, rowOf(*table.rows, OLESTR("surfaceTension")) != nullptr);
        EXPECT_EQ(table.kind == TemperatureDependent, rowOf(*table.rows, OLESTR("surfaceTensionSatLiquid")) != nullptr);
    }
    EXPECT_TRUE(hasColumns(twoPhaseProperties, OLESTR("surfaceTension"), 0, 0, OLESTR("N m"), OLESTR("N m")));
    EXPECT_TRUE(
        hasColumns(tDependentProperties, OLESTR("surfaceTensionSatLiquid"), 0, 1, OLESTR("N / m"), OLESTR("N / m")));
}

TEST_F(Vocabulary, KnowsNoDerivativesAndNoReservedNames)
{
    for (const Table &table : tables)
        for (const LPCWSTR name : {OLESTR("enthalpy.Dtemperature"), OLESTR("temperature"), OLESTR("fraction"),
                                   OLESTR("phaseFraction"), OLESTR("flow"), OLESTR("")})
            EXPECT_EQ(nullptr, rowOf(*table.rows, name));
}

TEST_F(Vocabulary, StaysAsItIsWhenBuiltTwice)
{
    std::vector<const PropertyInfo *> before;
    for (const Table &table : tables)
        for (const auto &[key, row] : *table.rows)
            before.push_back(row);
    BuildPropertyTables();
    std::vector<const PropertyInfo *> after;
    for (const Table &table : tables)
        for (const auto &[key, row] : *table.rows)
            after.push_back(row);
    EXPECT_EQ(before, after);
}

TEST_F(Vocabulary, IsEmptyAfterClearingAndCanBeBuiltAgain)
{
    ClearPropertyTables();
    for (const Table &table : tables)
        EXPECT_TRUE(table.rows->empty());
    ClearPropertyTables();
    BuildPropertyTables();
    for (const Table &table : tables)
        EXPECT_EQ(table.size, table.rows->size());
}

// A table that is built is not looked at again: a row taken out stays out until the next build.
TEST_F(Vocabulary, DoesNothingWhenItIsBuilt)
{
    twoPhaseProperties.erase(WSTRMapKeyString(OLESTR("kvalue")));
    BuildPropertyTables();
    EXPECT_EQ(2u, twoPhaseProperties.size());
    ClearPropertyTables();
    BuildPropertyTables();
    EXPECT_EQ(3u, twoPhaseProperties.size());
}

} // namespace
