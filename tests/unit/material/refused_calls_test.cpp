// The methods of a package's interfaces that a material refuses, whatever is asked.
#include "tests/unit/material/package_view.h"
#include "tests/unit/support/test_material.h"

#include <gtest/gtest.h>

namespace {

class RefusedCalls : public testing::Test {
protected:
    template <class Interface> ComPointer<Interface> query()
    {
        ComPointer<Interface> found;
        EXPECT_EQ(found.queryFrom(object), S_OK);
        return found;
    }

    // Tests the result and every word of the error state.
    void expectRefused(HRESULT hr, const std::string &interfaceName, const std::string &method)
    {
        EXPECT_EQ(static_cast<std::uint32_t>(hr), 0x80040501u);
        EXPECT_EQ(ErrorStateOf(object), "Invalid Call | " + method +
                                            " should not be called by the Property package | " + interfaceName + " | " +
                                            method);
        ComPointer<ECapeUser> user;
        ASSERT_EQ(user.queryFrom(object), S_OK);
        LONG code = 5;
        EXPECT_EQ(user->get_code(&code), S_OK);
        EXPECT_EQ(code, 0);
    }

    TestMaterial material{{18, 36}};
    IUnknown *object = static_cast<ICapeThermoMaterial *>(&material.material());
    Bstr text{OLESTR("vapor")};
    OwnedVariant argument; // VT_EMPTY
    DoubleArgument result{1, 2};
};

TEST_F(RefusedCalls, OfCompounds)
{
    const auto compounds = query<ICapeThermoCompounds>();
    const std::string name = "ICapeThermoCompounds";
    expectRefused(compounds->GetCompoundConstant(argument.value, argument.value, result.out()), name,
                  "GetCompoundConstant");
    expectRefused(compounds->GetConstPropList(result.out()), name, "GetConstPropList");
    expectRefused(compounds->GetPDependentProperty(argument.value, 1e5, argument.value, result.out()), name,
                  "GetPDependentProperty");
    expectRefused(compounds->GetPDependentPropList(result.out()), name, "GetPDependentPropList");
    expectRefused(compounds->GetTDependentProperty(argument.value, 300, argument.value, result.out()), name,
                  "GetTDependentProperty");
    expectRefused(compounds->GetTDependentPropList(result.out()), name, "GetTDependentPropList");
}

TEST_F(RefusedCalls, OfTheEquilibriumRoutine)
{
    const auto routine = query<ICapeThermoEquilibriumRoutine>();
    const std::string name = "ICapeThermoEquilibriumRoutine";
    expectRefused(routine->CalcEquilibrium(argument.value, argument.value, text.get()), name, "CalcEquilibrium");
    VARIANT_BOOL supported = 5;
    expectRefused(routine->CheckEquilibriumSpec(argument.value, argument.value, text.get(), &supported), name,
                  "CheckEquilibriumSpec");
    EXPECT_EQ(supported, 5);
}

TEST_F(RefusedCalls, OfPhases)
{
    expectRefused(query<ICapeThermoPhases>()->GetPhaseInfo(text.get(), text.get(), result.out()), "ICapeThermoPhases",
                  "GetPhaseInfo");
}

TEST_F(RefusedCalls, OfThePropertyRoutine)
{
    const auto routine = query<ICapeThermoPropertyRoutine>();
    const std::string name = "ICapeThermoPropertyRoutine";
    expectRefused(routine->CalcAndGetLnPhi(text.get(), 300, 1e5, argument.value, 1, result.out(), result.out(),
                                           result.out(), result.out()),
                  name, "CalcAndGetLnPhi");
    expectRefused(routine->CalcSinglePhaseProp(argument.value, text.get()), name, "CalcSinglePhaseProp");
    expectRefused(routine->CalcTwoPhaseProp(argument.value, argument.value), name, "CalcTwoPhaseProp");
    VARIANT_BOOL valid = 5;
    expectRefused(routine->CheckSinglePhasePropSpec(text.get(), text.get(), &valid), name, "CheckSinglePhasePropSpec");
    expectRefused(routine->CheckTwoPhasePropSpec(text.get(), argument.value, &valid), name, "CheckTwoPhasePropSpec");
    EXPECT_EQ(valid, 5);
    expectRefused(routine->GetSinglePhasePropList(result.out()), name, "GetSinglePhasePropList");
    expectRefused(routine->GetTwoPhasePropList(result.out()), name, "GetTwoPhasePropList");
}

TEST_F(RefusedCalls, OfUniversalConstants)
{
    const auto constants = query<ICapeThermoUniversalConstant>();
    const std::string name = "ICapeThermoUniversalConstant";
    expectRefused(constants->GetUniversalConstant(text.get(), result.out()), name, "GetUniversalConstant");
    expectRefused(constants->GetUniversalConstantList(result.out()), name, "GetUniversalConstantList");
}

TEST_F(RefusedCalls, LookAtNoArgument)
{
    expectRefused(query<ICapeThermoCompounds>()->GetConstPropList(nullptr), "ICapeThermoCompounds", "GetConstPropList");
    expectRefused(query<ICapeThermoPhases>()->GetPhaseInfo(nullptr, nullptr, nullptr), "ICapeThermoPhases",
                  "GetPhaseInfo");
    EXPECT_EQ(query<ICapeThermoUniversalConstant>()->GetUniversalConstantList(result.out()), ECapeUnknownHR);
    EXPECT_EQ(DoublesIn(result), (std::vector<double>{1, 2}));
}

TEST_F(RefusedCalls, ChangeNothingButTheErrorState)
{
    const PackageView view(object);
    EXPECT_EQ(view.setPhase(OLESTR("viscosity"), OLESTR("Vapor"), nullptr, DoubleArgument({2})), "");
    EXPECT_EQ(query<ICapeThermoPropertyRoutine>()->CalcSinglePhaseProp(argument.value, text.get()), ECapeUnknownHR);
    EXPECT_EQ(view.phase(OLESTR("viscosity"), OLESTR("Vapor"), nullptr).values, std::vector<double>{2});
}

} // namespace
