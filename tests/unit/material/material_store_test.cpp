// The fields and maps of the material, as the commands use them.
#include "material/material_object.h"
#include "material/reserved_property.h"
#include "tests/unit/material/material_test.h"
#include "tests/unit/support/allocation_watch.h"

#include <bit>
#include <limits>

namespace {

class MaterialStore : public MaterialTest {
protected:
    PropertyValues *find(const PropertyMap &map, LPCWSTR name)
    {
        PropertyValues *found = nullptr;
        map.find(name, found);
        return found;
    }
};

TEST_F(MaterialStore, StartsWithNothingSet)
{
    EXPECT_EQ(std::bit_cast<std::uint64_t>(material->temperature), 0x7FF8000000000000u);
    EXPECT_EQ(std::bit_cast<std::uint64_t>(material->pressure), 0x7FF8000000000000u);
    for (std::int32_t compound = 0; compound < 2; ++compound) {
        EXPECT_TRUE(IsMissing(material->overallComposition[compound]));
        EXPECT_TRUE(IsMissing(material->phaseComposition[0][compound]));
        EXPECT_TRUE(IsMissing(material->phaseComposition[1][compound]));
    }
    for (std::int32_t phase = 0; phase < 2; ++phase) {
        EXPECT_TRUE(IsMissing(material->phaseFraction[phase]));
        EXPECT_EQ(material->phasePresent[phase], 0);
        EXPECT_TRUE(material->phaseProps[phase].empty());
    }
    EXPECT_TRUE(material->overallProps.empty());
    EXPECT_EQ(view.errorState(), " |  |  | ");
}

TEST_F(MaterialStore, ClearsEverythingButTagsAndErrorState)
{
    material->temperature = 300;
    material->pressure = 1e5;
    material.setOverallComposition({0.25, 0.75}, 1);
    material.setPhaseComposition(1, {0.5, 0.5}, 1);
    material.setPhaseFraction(1, 0.5, 1);
    EXPECT_EQ(view.setOverall(OLESTR("viscosity"), nullptr, DoubleArgument({1})), "");
    EXPECT_EQ(view.setPhase(OLESTR("viscosity"), OLESTR("Liquid"), nullptr, DoubleArgument({2})), "");
    const std::string refusal = view.overall(OLESTR("flow"), nullptr).refusal;

    EXPECT_EQ(view->ClearAllProps(), S_OK);

    EXPECT_TRUE(IsMissing(material->temperature));
    EXPECT_TRUE(IsMissing(material->pressure));
    for (std::int32_t compound = 0; compound < 2; ++compound) {
        EXPECT_TRUE(IsMissing(material->overallComposition[compound]));
        EXPECT_TRUE(IsMissing(material->phaseComposition[1][compound]));
    }
    EXPECT_TRUE(IsMissing(material->phaseFraction[1]));
    EXPECT_EQ(material->phasePresent[1], 0);
    EXPECT_TRUE(material->overallProps.empty());
    EXPECT_TRUE(material->phaseProps[1].empty());
    EXPECT_EQ(material->overallCompositionBasis, 1);
    EXPECT_EQ(material->phaseCompositionBasis[1], 1);
    EXPECT_EQ(material->phaseFractionBasis[1], 1);
    EXPECT_EQ(view.errorState(), refusal);
}

TEST_F(MaterialStore, CountsMinusTheLargestDoubleAsNotSet)
{
    ASSERT_EQ(std::bit_cast<std::uint64_t>(undefinedValue), 0xFFEFFFFFFFFFFFFFu);
    material->temperature = undefinedValue;
    EXPECT_EQ(view.overall(OLESTR("temperature"), nullptr).refusal,
              "Missing value | Temperature is not set | ICapeThermoMaterialObject | GetOverallProp");
    material->temperature = -std::numeric_limits<double>::infinity();
    EXPECT_EQ(view.overall(OLESTR("temperature"), nullptr).refusal, "");
}

TEST_F(MaterialStore, KeepsAPropertyAndItsDerivativeApartAndClearsBoth)
{
    EXPECT_EQ(view.setOverall(OLESTR("viscosity"), nullptr, DoubleArgument({1})), "");
    EXPECT_EQ(view.setOverall(OLESTR("viscosity.Dtemperature"), nullptr, DoubleArgument({2})), "");
    EXPECT_EQ(material->overallProps.all().size(), 2u);
    EXPECT_EQ(view.overall(OLESTR("viscosity"), nullptr).values, std::vector<double>{1});
    EXPECT_EQ(view.overall(OLESTR("VISCOSITY.dTEMPERATURE"), nullptr).values, std::vector<double>{2});
    view->ClearAllProps();
    EXPECT_TRUE(material->overallProps.empty());
}

TEST_F(MaterialStore, KeysAreLowerCasedNamesWithTheirSuffix)
{
    EXPECT_EQ(view.setOverall(OLESTR("Viscosity.DTemperature"), nullptr, DoubleArgument({2})), "");
    ASSERT_EQ(material->overallProps.all().size(), 1u);
    EXPECT_EQ(Ascii(material->overallProps.all().begin()->first.GetKeyText()), "viscosity.dtemperature");
}

// A two-phase value has a count that its name tells; the store itself takes any.
TEST_F(MaterialStore, KeepsTheArrayOfAnEntryOfTheSameCount)
{
    EXPECT_EQ(view.setOverall(OLESTR("fugacity"), nullptr, DoubleArgument({1, 2})), "");
    PropertyValues *entry = find(material->overallProps, OLESTR("fugacity"));
    ASSERT_NE(entry, nullptr);
    const double *array = entry->values;
    EXPECT_EQ(view.setOverall(OLESTR("fugacity"), nullptr, DoubleArgument({3, 4})), "");
    EXPECT_EQ(find(material->overallProps, OLESTR("fugacity")), entry);
    EXPECT_EQ(entry->values, array);
    EXPECT_EQ(entry->values[0], 3);
    EXPECT_EQ(entry->values[1], 4);
}

TEST_F(MaterialStore, MakesANewArrayForAnotherCount)
{
    PropertyValues &entry = material->overallProps.entry(OLESTR("fugacity"));
    ASSERT_TRUE(entry.resize(3));
    EXPECT_EQ(view.setOverall(OLESTR("Fugacity"), nullptr, DoubleArgument({5, 6})), "");
    EXPECT_EQ(find(material->overallProps, OLESTR("fugacity")), &entry);
    ASSERT_EQ(entry.count, 2u);
    EXPECT_EQ(entry.values[0], 5);
    EXPECT_EQ(entry.values[1], 6);
}

TEST_F(MaterialStore, TellsThatMemoryIsOutAndLeavesTheEntryWithoutArray)
{
    const DoubleArgument values({1, 2});
    {
        const RefusedAllocations noMemory;
        EXPECT_EQ(view.setOverall(OLESTR("fugacity"), nullptr, values), "0x8007000E");
    }
    EXPECT_EQ(view.errorState(), " |  |  | ");
    const PropertyValues *entry = find(material->overallProps, OLESTR("fugacity"));
    ASSERT_NE(entry, nullptr);
    EXPECT_EQ(entry->count, 2u);
    EXPECT_EQ(entry->values, nullptr);
    EXPECT_EQ(view.overall(OLESTR("fugacity"), nullptr).refusal,
              "No values | Values not set for property fugacity | ICapeThermoMaterialObject | GetOverallProp");
    EXPECT_EQ(view.setOverall(OLESTR("fugacity"), nullptr, values), "");
    EXPECT_EQ(view.overall(OLESTR("fugacity"), nullptr).values, (std::vector<double>{1, 2}));
}

TEST_F(MaterialStore, FindsThePhaseOfALabelInAnyCase)
{
    EXPECT_EQ(material->PhaseIndex(OLESTR("vapor")), 0);
    EXPECT_EQ(material->PhaseIndex(OLESTR("LIQUID")), 1);
    EXPECT_EQ(material->PhaseIndex(OLESTR("Solid")), -1);
    EXPECT_EQ(material->PhaseIndex(OLESTR("")), -1);
    EXPECT_EQ(material->PhaseIndex(nullptr), -1);
}

TEST_F(MaterialStore, TakesTheFirstOfTwoPhasesOfOneLabel)
{
    TestMaterial twins({18}, {OLESTR("Solid"), OLESTR("liquid"), OLESTR("LIQUID")});
    EXPECT_EQ(twins->PhaseIndex(OLESTR("LIQUID")), 1);
}

TEST_F(MaterialStore, NullIsNoPhaseEvenWhereALabelIsEmpty)
{
    TestMaterial nameless({18}, {OLESTR("")});
    EXPECT_EQ(nameless->PhaseIndex(OLESTR("")), 0);
    EXPECT_EQ(nameless->PhaseIndex(nullptr), -1);
}

TEST_F(MaterialStore, HasScratchForAMatrixOfCompounds)
{
    for (std::int32_t i = 0; i < 4; ++i)
        material->conversionScratch[i] = i; // the sanitizer and the heap check watch the end
    EXPECT_EQ(material->conversionScratch[3], 3);
}

TEST(MaterialLife, OneThatWasNeverGivenARecordGoesWithoutOne)
{
    const LONG locks = Module.lockCount;
    auto *material = new CComObject<CMaterialObject>;
    EXPECT_EQ(material->openPackage, nullptr);
    EXPECT_EQ(material->AddRef(), 1u);
    EXPECT_EQ(material->Release(), 0u);
    EXPECT_EQ(Module.lockCount, locks);
}

// A package may keep its reference for longer than the record lives.
TEST(MaterialLife, OutlivesItsRecord)
{
    CComObject<CMaterialObject> *kept = nullptr;
    {
        TestMaterial material({18, 36});
        kept = &material.material();
        kept->AddRef();
        const PackageView view(static_cast<ICapeThermoMaterial *>(kept));
        EXPECT_EQ(view.setPhase(OLESTR("viscosity"), OLESTR("Liquid"), nullptr, DoubleArgument({2})), "");
    }
    EXPECT_EQ(kept->Release(), 0u);
}

// Worked out apart with arbitrary-precision integers: h = (h * 0x1000193 mod 2^64) ^ c from 0x811C9DC5.
TEST(ReservedPropertyHashes, AreThoseOfTheLowerCasedNames)
{
    const TestMaterial first({18});
    EXPECT_EQ(ReservedPropertyHashes[0], 0x3B31BD4335A123F9u); // temperature
    EXPECT_EQ(ReservedPropertyHashes[1], 0x1C9467C747D82934u); // pressure
    EXPECT_EQ(ReservedPropertyHashes[2], 0x3FEF6947B4B966D9u); // flow
    EXPECT_EQ(ReservedPropertyHashes[3], 0xD4D793260850AC51u); // totalflow
    EXPECT_EQ(ReservedPropertyHashes[4], 0x50F72F8CF9F93513u); // fraction
    EXPECT_EQ(ReservedPropertyHashes[5], 0x24475B4923AE4680u); // phasefraction
    EXPECT_EQ(reservedPropertyCount, 6u);
}

} // namespace
