#include "tests/support/component_world.h"
#include "tests/support/failures.h"

#include <gtest/gtest.h>

using namespace support;

namespace {

class ScriptedPackage : public testing::Test {
protected:
    void SetUp() override { ASSERT_EQ(package.create(InterfaceId<IDispatch>, object.outVoid()), S_OK); }

    template <class Interface> ComPointer<Interface> as()
    {
        ComPointer<Interface> facet;
        facet.queryFrom(object.get());
        return facet;
    }

    ComponentWorld world;
    PackageScript &package = world.addUnregisteredPackage();
    ComPointer<IDispatch> object;
};

} // namespace

TEST_F(ScriptedPackage, GivesItsListsAsTheyAre)
{
    package.phaseLabels = TwoDimensionalArray(VT_R8, 2, 3);
    package.statesOfAggregation = Variant();
    package.keyCompounds = TextArray({"A"}, -2);
    Variant labels, states, keys;
    EXPECT_EQ(as<ICapeThermoPhases>()->GetPhaseList(&labels.value, &states.value, &keys.value), S_OK);
    EXPECT_EQ(labels.value.vt, VT_ARRAY | VT_R8);
    EXPECT_EQ(SafeArrayGetDim(labels.value.parray), 2u);
    EXPECT_EQ(states.value.vt, VT_EMPTY);
    EXPECT_EQ(TextsOf(keys.value), Names({"A"}));
}

TEST_F(ScriptedPackage, FailsAtTheCallThatWasChosen)
{
    package.answer("GetNumPhases", computationFailed, 2);
    const ComPointer<ICapeThermoPhases> phases = as<ICapeThermoPhases>();
    LONG count = 0;
    EXPECT_EQ(phases->GetNumPhases(&count), S_OK);
    EXPECT_EQ(count, 2);
    count = -1;
    EXPECT_EQ(phases->GetNumPhases(&count), computationFailed);
    EXPECT_EQ(count, -1);
    EXPECT_EQ(phases->GetNumPhases(&count), S_OK);
    EXPECT_EQ(package.calls("GetNumPhases"), 3);
}

TEST_F(ScriptedPackage, LacksTheInterfacesThatItRefuses)
{
    EXPECT_TRUE(as<ICapeThermoMaterialContext>());
    package.refuse(InterfaceId<ICapeThermoMaterialContext>);
    package.refuse(InterfaceId<ICapeThermoPhases>, E_FAIL);
    ComPointer<ICapeThermoMaterialContext> context;
    ComPointer<ICapeThermoPhases> phases;
    EXPECT_EQ(context.queryFrom(object.get()), E_NOINTERFACE);
    EXPECT_EQ(phases.queryFrom(object.get()), E_FAIL);
}

TEST_F(ScriptedPackage, IsPersistentOnlyWhenToldSo)
{
    EXPECT_FALSE(as<IPersistStreamInit>());
    package.persistent = true;
    package.answer("InitNew", E_NOTIMPL);
    EXPECT_EQ(as<IPersistStreamInit>()->InitNew(), E_NOTIMPL);
}

TEST_F(ScriptedPackage, HasNoErrorInterfaceWithoutWords)
{
    EXPECT_FALSE(as<ECapeUser>());
    EXPECT_FALSE(as<ECapeRoot>());
}

TEST_F(ScriptedPackage, SaysItsWordsEvenWithAFailingResult)
{
    package.words = Description("so it is");
    package.answer("get_description", E_FAIL);
    OwnedBstr description;
    EXPECT_EQ(as<ECapeUser>()->get_description(description.out()), E_FAIL);
    EXPECT_EQ(description.wide(), Wide("so it is"));
    EXPECT_FALSE(as<ECapeRoot>());
}

TEST_F(ScriptedPackage, LeavesATextThatIsNotThereNull)
{
    package.words.user = package.words.root = true;
    package.words.name = WideString();
    OwnedBstr description, name;
    EXPECT_EQ(as<ECapeUser>()->get_description(description.out()), S_OK);
    EXPECT_EQ(as<ECapeRoot>()->get_name(name.out()), S_OK);
    EXPECT_EQ(static_cast<BSTR>(description), nullptr);
    EXPECT_NE(static_cast<BSTR>(name), nullptr);
    EXPECT_EQ(name.wide(), WideString());
}

TEST_F(ScriptedPackage, LeadsToItsWordsFromOneInterfaceOnlyWhenToldSo)
{
    package.words = Description("only from here");
    package.words.onlyFrom = &InterfaceId<ICapeThermoCompounds>;
    EXPECT_FALSE(as<ECapeUser>());
    ComPointer<ECapeUser> user;
    EXPECT_EQ(user.queryFrom(as<ICapeThermoCompounds>().get()), S_OK);
}

TEST_F(ScriptedPackage, CountsReferencesByInterface)
{
    {
        const ComPointer<ICapeThermoPhases> phases = as<ICapeThermoPhases>();
        const ComPointer<ICapeThermoPhases> again = as<ICapeThermoPhases>();
        EXPECT_EQ(package.references(InterfaceId<ICapeThermoPhases>), 2);
        EXPECT_EQ(package.references(InterfaceId<IDispatch>), 1);
        EXPECT_EQ(package.references(), 3);
    }
    EXPECT_EQ(package.references(), 1);
}

TEST_F(ScriptedPackage, HasOneIdentity)
{
    const ComPointer<ICapeThermoPhases> phases = as<ICapeThermoPhases>();
    ComPointer<IUnknown> fromObject, fromPhases;
    EXPECT_EQ(fromObject.queryFrom(object.get()), S_OK);
    EXPECT_EQ(fromPhases.queryFrom(phases.get()), S_OK);
    EXPECT_EQ(fromObject.get(), fromPhases.get());
}

TEST_F(ScriptedPackage, HandsItsQuestionsToTheCalculations)
{
    CompoundCall seen;
    package.temperatureDependent = [&](const CompoundCall &call, Variant &values) {
        seen = call;
        values = NumberArray({1, 2});
        return S_FALSE;
    };
    Variant values;
    const Variant names = TextArray({"vaporPressure"}), none;
    EXPECT_EQ(as<ICapeThermoCompounds>()->GetTDependentProperty(names.value, 350, none.value, &values.value), S_OK);
    EXPECT_EQ(seen.properties, Names({"vaporPressure"}));
    EXPECT_EQ(seen.condition, 350);
    EXPECT_EQ(seen.compoundIds, VT_EMPTY);
    EXPECT_EQ(NumbersOf(values.value), (std::vector<double>{1, 2}));
}

TEST_F(ScriptedPackage, SupportsTheSpecificationsThatItIsToldTo)
{
    const Variant first = TextArray({"temperature", "", "Overall"});
    const Variant second = TextArray({"enthalpy", "mole", "Overall"});
    const ComPointer<ICapeThermoEquilibriumRoutine> routine = as<ICapeThermoEquilibriumRoutine>();
    VARIANT_BOOL supported = VARIANT_FALSE;
    const OwnedBstr solutionType("Unspecified");
    EXPECT_EQ(routine->CheckEquilibriumSpec(first.value, second.value, solutionType, &supported), S_OK);
    EXPECT_EQ(supported, VARIANT_TRUE);
    package.supportsEquilibrium = [](const SpecificationCheck &check) {
        return check.specification2[0] != Wide("enthalpy");
    };
    EXPECT_EQ(routine->CheckEquilibriumSpec(first.value, second.value, solutionType, &supported), S_OK);
    EXPECT_EQ(supported, VARIANT_FALSE);
}

TEST_F(ScriptedPackage, LetsGoOfItsContextWithItsLastReferenceUnlessToldToKeepIt)
{
    PackageScript &other = world.addUnregisteredPackage(); // stands for the host's context
    ComPointer<IDispatch> context;
    ASSERT_EQ(other.create(InterfaceId<IDispatch>, context.outVoid()), S_OK);

    EXPECT_EQ(as<ICapeUtilities>()->put_simulationContext(context.get()), S_OK);
    EXPECT_EQ(other.references(), 2);
    object.reset();
    EXPECT_EQ(other.references(), 1);

    package.keepsContext = true;
    ASSERT_EQ(package.create(InterfaceId<IDispatch>, object.outVoid()), S_OK);
    EXPECT_EQ(as<ICapeUtilities>()->put_simulationContext(context.get()), S_OK);
    object.reset();
    EXPECT_EQ(other.references(), 2);
    package.keptContext.reset();
    EXPECT_EQ(other.references(), 1);
}
