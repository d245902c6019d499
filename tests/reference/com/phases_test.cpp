#include "tests/reference/com/package_fixture.h"

using namespace reference;

using PackagePhases = PackageFixture;

TEST_F(PackagePhases, AreAVaporAndTwoLiquids)
{
    LONG count = 0;
    ASSERT_EQ(phases->GetNumPhases(&count), S_OK);
    EXPECT_EQ(count, 3);
    Argument labels;
    Argument states;
    Argument keys;
    labels.setText("to be freed");
    ASSERT_EQ(phases->GetPhaseList(labels.out(), states.out(), keys.out()), S_OK);
    EXPECT_EQ(textsOf(labels.get()), (std::vector<std::string>{"Vapor", "Liquid", "Liquid2"}));
    EXPECT_EQ(textsOf(states.get()), (std::vector<std::string>{"Vapor", "Liquid", "Liquid"}));
    EXPECT_EQ(textsOf(keys.get()), (std::vector<std::string>{"", "", ""}));
}

TEST_F(PackagePhases, TouchNothingWhenAPointerIsNull)
{
    Argument value;
    EXPECT_EQ(phases->GetPhaseList(nullptr, value.out(), value.out()), E_POINTER);
    EXPECT_EQ(phases->GetPhaseList(value.out(), nullptr, value.out()), E_POINTER);
    EXPECT_EQ(phases->GetPhaseList(value.out(), value.out(), nullptr), E_POINTER);
    EXPECT_EQ(value.get().vt, VT_EMPTY);
    EXPECT_EQ(phases->GetNumPhases(nullptr), E_POINTER);
    EXPECT_EQ(phases->GetPhaseInfo(nullptr, nullptr, nullptr), E_POINTER);
}

TEST_F(PackagePhases, TellTheirAttributes)
{
    const auto attribute = [&](std::string_view label, std::string_view name) {
        Argument value;
        EXPECT_EQ(phases->GetPhaseInfo(Bstr(label).get(), Bstr(name).get(), value.out()), S_OK);
        EXPECT_EQ(value.get().vt, VT_BSTR);
        return narrow(value.get().bstrVal);
    };
    EXPECT_EQ(attribute("Vapor", "StateOfAggregation"), "Vapor");
    EXPECT_EQ(attribute("LIQUID", "stateofaggregation"), "Liquid");
    EXPECT_EQ(attribute("Liquid", "UserDescription"), "The only liquid, or the less aqueous or less dense one of two");
    for (const char *undefined : {"KeyCompoundId", "ExcludedCompoundId", "DensityDescription", "TypeOfSolid"})
        EXPECT_EQ(attribute("Vapor", undefined), "");
}

TEST_F(PackagePhases, RefuseUnknownLabelsAndAttributes)
{
    Argument value;
    expectFailure(phases->GetPhaseInfo(Bstr(std::string_view("Overall")).get(),
                                       Bstr(std::string_view("StateOfAggregation")).get(), value.out()),
                  errors::invalidArgument, "ICapeThermoPhases", "GetPhaseInfo", "There is no phase \"Overall\"");
    expectFailure(phases->GetPhaseInfo(Bstr(std::string_view("Vapor")).get(), nullptr, value.out()),
                  errors::invalidArgument, "ICapeThermoPhases", "GetPhaseInfo", "Phases have no attribute \"\"");
    EXPECT_EQ(value.get().vt, VT_EMPTY);
}
