// The second liquid of a package: what it is called, and which flashes may form it.
#include "tests/reference/com/opened_package.h"

using namespace reference;

namespace {

const std::vector<std::string> all = {"Vapor", "Liquid", "Liquid2"};

class SecondLiquid : public testing::Test {
protected:
    // Methane, n-hexane and water where there are a vapor and two liquids.
    void SetUp() override { wet.setMaterial({"methane", "n-hexane", "water"}, 300.0, 2e6, {0.5, 0.2, 0.3}); }

    std::string attribute(OpenedPackage &package, std::string_view label, std::string_view name)
    {
        Argument value;
        EXPECT_EQ(package.phases->GetPhaseInfo(Bstr(label).get(), Bstr(name).get(), value.out()), S_OK);
        return narrow(value.get().bstrVal);
    }
    std::vector<std::string> keysOf(OpenedPackage &package)
    {
        Argument lists[3];
        EXPECT_EQ(package.phases->GetPhaseList(lists[0].out(), lists[1].out(), lists[2].out()), S_OK);
        EXPECT_EQ(textsOf(lists[0].get()), all);
        EXPECT_EQ(textsOf(lists[1].get()), (std::vector<std::string>{"Vapor", "Liquid", "Liquid"}));
        return textsOf(lists[2].get());
    }
    void expectRefusal(const std::vector<std::string> &allowed, const std::vector<std::string> &fraction,
                       const ErrorKind &kind, const char *description)
    {
        wet.material.written.clear();
        wet.material.presentPhases = allowed;
        EXPECT_EQ(wet.equilibrium->CalcEquilibrium(texts({"temperature", "", "Overall"}).get(), texts(fraction).get(),
                                                   nullptr),
                  kind.result);
        EXPECT_EQ(lastFailure(wet.equilibrium.get()).description, description);
        EXPECT_TRUE(wet.material.written.empty());
    }

    Library library;
    OpenedPackage wet{library, "All compounds (Peng-Robinson)"};
};

} // namespace

TEST_F(SecondLiquid, IsTheAqueousOneWhereThereIsWater)
{
    EXPECT_EQ(keysOf(wet), (std::vector<std::string>{"", "", "water"}));
    EXPECT_EQ(attribute(wet, "liquid2", "KeyCompoundId"), "water");
    EXPECT_EQ(attribute(wet, "Liquid", "KeyCompoundId"), "");
    EXPECT_EQ(attribute(wet, "Liquid2", "DensityDescription"), "");
}

TEST_F(SecondLiquid, IsTheDenserOneWhereThereIsNoWater)
{
    OpenedPackage dry(library, "Natural gas");
    EXPECT_EQ(keysOf(dry), (std::vector<std::string>{"", "", ""}));
    EXPECT_EQ(attribute(dry, "Vapor", "DensityDescription"), "");
    EXPECT_EQ(attribute(dry, "Liquid", "DensityDescription"), "Light");
    EXPECT_EQ(attribute(dry, "Liquid2", "DensityDescription"), "Heavy");
    dry.setMaterial({"methane", "hydrogen sulfide"}, 180.0, 6e6, {0.5, 0.5});
    const auto written = dry.flash(all);
    ASSERT_EQ(dry.material.presentPhases, (std::vector<std::string>{"Liquid", "Liquid2"}));
    dry.expectEquilibrium(written, dry.material.presentPhases);
    const auto massDensity = [&](const char *phase) {
        return dry.valuesOf("density", phase)[0] * dry.valuesOf("molecularWeight", phase)[0];
    };
    EXPECT_GT(massDensity("Liquid2"), 1.2 * massDensity("Liquid"));
}

// The key compound is the package's; a material that leaves it out has its liquids told apart by density.
TEST_F(SecondLiquid, IsTheDenserOneWhereTheMaterialLeavesTheWaterOut)
{
    wet.setMaterial({"hydrogen sulfide", "methane"}, 180.0, 6e6, {0.5, 0.5});
    const auto written = wet.flash(all);
    ASSERT_EQ(wet.material.presentPhases, (std::vector<std::string>{"Liquid", "Liquid2"}));
    EXPECT_GT(written.at("Liquid/fraction").values[1], 0.5);  // methane
    EXPECT_GT(written.at("Liquid2/fraction").values[0], 0.5); // hydrogen sulfide
    EXPECT_EQ(keysOf(wet), (std::vector<std::string>{"", "", "water"}));
}

TEST_F(SecondLiquid, IsFormedBesideVaporAndLiquid)
{
    const auto written = wet.flash(all);
    EXPECT_EQ(wet.material.presentPhases, all);
    EXPECT_EQ(wet.material.statuses, (std::vector<LONG>{1, 1, 1})); // CAPE_ATEQUILIBRIUM
    wet.expectEquilibrium(written, all);
    for (const std::string &phase : all)
        EXPECT_GT(written.at(phase + "/phaseFraction").values[0], 0.01) << phase;
    EXPECT_GT(written.at("Liquid/fraction").values[1], 0.7);   // hexane
    EXPECT_GT(written.at("Liquid2/fraction").values[2], 0.99); // water
}

TEST_F(SecondLiquid, IsFormedOnlyWhereItIsAllowed)
{
    wet.flash({"Vapor", "Liquid"});
    EXPECT_EQ(wet.material.presentPhases, (std::vector<std::string>{"Vapor", "Liquid"}));
    wet.flash({"Vapor"});
    EXPECT_EQ(wet.material.presentPhases, std::vector<std::string>{"Vapor"});
}

TEST_F(SecondLiquid, IsTheOnlyLiquidWhereTheOtherIsNotAllowed)
{
    const auto written = wet.flash({"Vapor", "Liquid2"});
    EXPECT_EQ(wet.material.presentPhases, (std::vector<std::string>{"Vapor", "Liquid2"}));
    EXPECT_EQ(written.at("Vapor/phaseFraction").values[0] + written.at("Liquid2/phaseFraction").values[0], 1.0);
    wet.flash({"liquid2"});
    EXPECT_EQ(wet.material.presentPhases, std::vector<std::string>{"Liquid2"});
}

TEST_F(SecondLiquid, IsFormedWithoutVapor)
{
    wet.setMaterial({"n-hexane", "water"}, 298.15, 1e5, {0.5, 0.5});
    const auto written = wet.flash(all);
    EXPECT_EQ(wet.material.presentPhases, (std::vector<std::string>{"Liquid", "Liquid2"}));
    EXPECT_GT(written.at("Liquid2/fraction").values[1], 0.99);
}

TEST_F(SecondLiquid, LeavesTheNameOfTheFirstToALiquidThatIsAlone)
{
    wet.setMaterial({"n-hexane", "water"}, 298.15, 1e5, {0.0, 1.0});
    wet.flash(all);
    EXPECT_EQ(wet.material.presentPhases, std::vector<std::string>{"Liquid"});
}

TEST_F(SecondLiquid, TakesNoPartInTheFractionOfTheOnlyLiquid)
{
    wet.material.given["Overall/temperature/"] = 300.0;
    wet.material.given["Liquid/phaseFraction/mole"] = 0.5;
    wet.material.given["Liquid2/phaseFraction/mole"] = 0.3;
    expectRefusal(all, {"phaseFraction", "mole", "Liquid2"}, errors::limitedImplementation,
                  "A flash can be given the fraction of the vapor or of the only liquid, and not of a second liquid");
    expectRefusal(all, {"phaseFraction", "mole", "Liquid"}, errors::solvingError,
                  "Where the liquid has that fraction there are two liquids: give the fraction of the vapor, or allow "
                  "one liquid");
    const char *notAllowed =
        "A flash can be given the fraction of a phase only where it may use that phase, and vapor as well as liquid";
    expectRefusal({"Vapor", "Liquid2"}, {"phaseFraction", "mole", "Liquid"}, errors::invalidArgument, notAllowed);
    expectRefusal({"Liquid", "Liquid2"}, {"phaseFraction", "mole", "Vapor"}, errors::invalidArgument, notAllowed);
}
