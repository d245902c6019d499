#include "tests/reference/com/package_fixture.h"

using namespace reference;

namespace {

class PackageMaterialContext : public PackageFixture {
protected:
    IDispatch *dispatch() { return static_cast<ICapeThermoMaterial *>(&material); }
    HRESULT calculate()
    {
        return properties->CalcSinglePhaseProp(texts({"volume"}).get(), Bstr(std::string_view("Vapor")).get());
    }
    void expectRefusal(const ErrorKind &kind, const char *description)
    {
        expectFailure(context->SetMaterial(dispatch()), kind, "ICapeThermoMaterialContext", "SetMaterial", description);
        EXPECT_EQ(material.references, 1u);
    }
};

} // namespace

TEST_F(PackageMaterialContext, HoldsOneReferenceUntilUnset)
{
    ASSERT_EQ(context->SetMaterial(dispatch()), S_OK);
    EXPECT_EQ(material.references, 2u);
    EXPECT_EQ(context->UnsetMaterial(), S_OK);
    EXPECT_EQ(material.references, 1u);
    EXPECT_EQ(context->UnsetMaterial(), S_OK); // harmless
    EXPECT_EQ(material.references, 1u);
}

TEST_F(PackageMaterialContext, LetsGoOfTheMaterialAtTerminate)
{
    ASSERT_EQ(context->SetMaterial(dispatch()), S_OK);
    EXPECT_EQ(as<ICapeUtilities>(context.get())->Terminate(), S_OK);
    EXPECT_EQ(material.references, 1u);
}

TEST_F(PackageMaterialContext, LetsGoOfTheMaterialWithoutTerminate)
{
    ASSERT_EQ(context->SetMaterial(dispatch()), S_OK); // the fixture's end releases the package and checks
}

TEST_F(PackageMaterialContext, ReplacesOneMaterialByAnother)
{
    TestMaterial other({"ethane"});
    other.temperature = 300.0;
    other.pressure = 1e5;
    other.composition = {1.0};
    ASSERT_EQ(context->SetMaterial(dispatch()), S_OK);
    ASSERT_EQ(context->SetMaterial(static_cast<ICapeThermoMaterial *>(&other)), S_OK);
    EXPECT_EQ(material.references, 1u);
    EXPECT_EQ(calculate(), S_OK);
    EXPECT_EQ(other.written.size(), 1u);
    EXPECT_TRUE(material.written.empty());
    EXPECT_EQ(context->UnsetMaterial(), S_OK);
    EXPECT_EQ(other.references, 1u);
}

TEST_F(PackageMaterialContext, MakesCalculationsFailAfterUnset)
{
    ASSERT_EQ(context->SetMaterial(dispatch()), S_OK);
    context->UnsetMaterial();
    expectFailure(calculate(), errors::badInvocationOrder, "ICapeThermoPropertyRoutine", "CalcSinglePhaseProp",
                  "No material is set");
}

TEST_F(PackageMaterialContext, RefusesWhatIsNoMaterial)
{
    expectFailure(context->SetMaterial(nullptr), errors::invalidArgument, "ICapeThermoMaterialContext", "SetMaterial",
                  "The object is no material with a list of compounds");
    expectFailure(context->SetMaterial(compounds.get()), errors::invalidArgument, "ICapeThermoMaterialContext",
                  "SetMaterial", "The object is no material with a list of compounds");
}

TEST_F(PackageMaterialContext, RefusesAMaterialWithoutKnownCompounds)
{
    material.compoundIds = {};
    expectRefusal(errors::failedInitialization, "The material has no compounds");
    material.compoundIds = {"methane", "water"};
    expectRefusal(errors::failedInitialization, "The package has no compound \"water\", which the material has");
    material.compoundIds = {"methane", "ethane", "Methane"};
    expectRefusal(errors::failedInitialization, "The material has the compound \"Methane\" twice");
    material.refused = "GetCompoundList";
    expectRefusal(errors::failedInitialization, "The material does not tell its compounds: GetCompoundList is refused");
}

// The ids are the host's own; the numbers are those of propane, methane and nitrogen.
TEST_F(PackageMaterialContext, KnowsCompoundsWithOtherIdsByTheirCasNumbers)
{
    ASSERT_EQ(context->SetMaterial(dispatch()), S_OK);
    ASSERT_EQ(calculate(), S_OK);
    const double expected = material.written["Vapor/volume"].values[0];
    material.written.clear();
    material.compoundIds = {"C3", "C1", "nitrogen"};
    material.casNumbers = {"74-98-6", "74-82-8", ""};
    ASSERT_EQ(context->SetMaterial(dispatch()), S_OK);
    ASSERT_EQ(calculate(), S_OK);
    EXPECT_EQ(material.written["Vapor/volume"].values[0], expected);
    context->UnsetMaterial();
    material.compoundIds = {"methane", "C1"};
    material.casNumbers = {"74-82-8", "74-82-8"};
    expectRefusal(errors::failedInitialization, "The material has the compound \"C1\" twice");
    material.compoundIds = {"methane", "C2"};
    expectRefusal(errors::failedInitialization, "The material has the compound \"C2\" twice");
    material.casNumbers = {"74-82-8", "7732-18-5"};
    expectRefusal(errors::failedInitialization, "The package has no compound \"C2\", which the material has");
    material.casNumbers = {"74-84-0"}; // not one for each
    expectRefusal(errors::failedInitialization, "The package has no compound \"C2\", which the material has");
}

TEST_F(PackageMaterialContext, KeepsTheFirstMaterialWhenTheSecondIsRefused)
{
    TestMaterial other({"water"});
    ASSERT_EQ(context->SetMaterial(dispatch()), S_OK);
    EXPECT_EQ(context->SetMaterial(static_cast<ICapeThermoMaterial *>(&other)), errors::failedInitialization.result);
    EXPECT_EQ(other.references, 1u);
    EXPECT_EQ(calculate(), S_OK);
    EXPECT_EQ(material.written.size(), 1u);
}

// As it may happen to a host that handles messages while it waits.
TEST_F(PackageMaterialContext, KeepsTheMaterialInTheMidstOfACalculation)
{
    TestMaterial other({"methane"});
    ASSERT_EQ(context->SetMaterial(dispatch()), S_OK);
    const auto utilities = as<ICapeUtilities>(compounds.get());
    const char *reason = "A calculation with the material is going on";
    int calls = 0;
    material.onCall = [&] {
        ++calls;
        expectFailure(context->UnsetMaterial(), errors::badInvocationOrder, "ICapeThermoMaterialContext",
                      "UnsetMaterial", reason);
        expectFailure(utilities->Terminate(), errors::badInvocationOrder, "ICapeUtilities", "Terminate", reason);
        expectFailure(context->SetMaterial(static_cast<ICapeThermoMaterial *>(&other)), errors::badInvocationOrder,
                      "ICapeThermoMaterialContext", "SetMaterial", reason);
    };
    EXPECT_EQ(calculate(), S_OK);
    EXPECT_EQ(calls, 2);
    EXPECT_EQ(properties->CalcTwoPhaseProp(texts({"kvalue"}).get(), texts({"Vapor", "Liquid"}).get()), S_OK);
    EXPECT_EQ(calls, 5);
    EXPECT_EQ(equilibrium->CalcEquilibrium(texts({"temperature", "", "Overall"}).get(),
                                           texts({"pressure", "", "Overall"}).get(), nullptr),
              S_OK);
    EXPECT_GT(calls, 5);
    material.onCall = nullptr;
    EXPECT_EQ(context->UnsetMaterial(), S_OK);
}
