#include "tests/reference/com/package_fixture.h"

using namespace reference;

namespace {

class PackageUniversalConstants : public PackageFixture {
protected:
    void SetUp() override
    {
        PackageFixture::SetUp();
        constants = as<ICapeThermoUniversalConstant>(compounds.get());
        ASSERT_TRUE(constants);
    }
    void TearDown() override
    {
        constants.reset();
        PackageFixture::TearDown();
    }

    ComPointer<ICapeThermoUniversalConstant> constants;
};

} // namespace

TEST_F(PackageUniversalConstants, HaveTheValuesOfTheSIBrochure)
{
    const struct {
        std::string id;
        double value;
    } expected[] = {{"avogadroConstant", 6.02214076e23},        {"boltzmannConstant", 1.380649e-23},
                    {"molarGasConstant", 8.31446261815324},     {"speedOfLightInVacuum", 299792458.0},
                    {"standardAccelerationOfGravity", 9.80665}, {"idealGasStateReferencePressure", 101325.0}};
    Argument list;
    ASSERT_EQ(constants->GetUniversalConstantList(list.out()), S_OK);
    std::vector<std::string> ids;
    for (const auto &each : expected) {
        ids.push_back(each.id);
        Argument value;
        ASSERT_EQ(constants->GetUniversalConstant(Bstr(each.id).get(), value.out()), S_OK) << each.id;
        ASSERT_EQ(value.get().vt, VT_R8) << each.id;
        EXPECT_DOUBLE_EQ(value.get().dblVal, each.value) << each.id;
    }
    EXPECT_EQ(textsOf(list.get()), ids);
}

TEST_F(PackageUniversalConstants, AreFoundInAnyCase)
{
    Argument value;
    ASSERT_EQ(constants->GetUniversalConstant(Bstr(std::string_view("MOLARGASCONSTANT")).get(), value.out()), S_OK);
    EXPECT_DOUBLE_EQ(value.get().dblVal, 8.31446261815324);
}

TEST_F(PackageUniversalConstants, RefuseOtherIdsAndNullPointers)
{
    Argument value;
    expectFailure(constants->GetUniversalConstant(Bstr(std::string_view("planckConstant")).get(), value.out()),
                  errors::invalidArgument, "ICapeThermoUniversalConstant", "GetUniversalConstant",
                  "There is no universal constant \"planckConstant\"");
    EXPECT_EQ(constants->GetUniversalConstant(nullptr, value.out()), errors::invalidArgument.result);
    EXPECT_EQ(value.get().vt, VT_EMPTY);
    EXPECT_EQ(constants->GetUniversalConstant(nullptr, nullptr), E_POINTER);
    EXPECT_EQ(constants->GetUniversalConstantList(nullptr), E_POINTER);
}
