#include "tests/reference/com/package_fixture.h"

#include <cmath>
#include <limits>

using namespace reference;

namespace {

class PackageProperties : public PackageFixture {
protected:
    HRESULT calculate(const std::vector<std::string> &names, std::string_view phase = "Vapor")
    {
        return properties->CalcSinglePhaseProp(texts(names).get(), Bstr(phase).get());
    }
    void expectRefusal(HRESULT result, const ErrorKind &kind, const char *description)
    {
        expectFailure(result, kind, "ICapeThermoPropertyRoutine", "CalcSinglePhaseProp", description);
        EXPECT_TRUE(material.written.empty());
    }
    bool isValid(std::string_view name, std::string_view phase)
    {
        VARIANT_BOOL valid = 7;
        EXPECT_EQ(properties->CheckSinglePhasePropSpec(Bstr(name).get(), Bstr(phase).get(), &valid), S_OK);
        return valid == VARIANT_TRUE;
    }
};

} // namespace

TEST_F(PackageProperties, AreNotValidUnderOtherNames)
{
    EXPECT_FALSE(isValid("osmoticCoefficient", "Vapor"));
    EXPECT_FALSE(isValid("volume.Dvolume", "Vapor"));
    EXPECT_FALSE(isValid("volume.", "Vapor"));
    EXPECT_FALSE(isValid("volum", "Vapor"));
    EXPECT_FALSE(isValid("", "Vapor"));
    EXPECT_FALSE(isValid("volume", "Overall"));
    VARIANT_BOOL valid = VARIANT_TRUE;
    EXPECT_EQ(properties->CheckSinglePhasePropSpec(nullptr, nullptr, &valid), S_OK);
    EXPECT_EQ(valid, VARIANT_FALSE);
}

// The order is the material's: propane, methane, nitrogen.
TEST_F(PackageProperties, ArriveInTheMaterialInItsOrderOfCompounds)
{
    setMaterial();
    ASSERT_EQ(calculate({"logFugacityCoefficient"}, "liquid"), S_OK);
    const std::vector<double> lnPhi = material.written.at("liquid/logFugacityCoefficient").values;
    ASSERT_EQ(lnPhi.size(), 3u);
    EXPECT_LT(lnPhi[0], lnPhi[1]); // propane is the heaviest
    EXPECT_LT(lnPhi[1], lnPhi[2]);
    material.compoundIds = {"nitrogen", "propane", "methane"};
    material.composition = {0.125, 0.25, 0.625};
    setMaterial();
    ASSERT_EQ(calculate({"logFugacityCoefficient"}, "liquid"), S_OK);
    const std::vector<double> turned = material.written.at("liquid/logFugacityCoefficient").values;
    for (int i = 0; i < 3; ++i)
        EXPECT_NEAR(turned[(i + 1) % 3], lnPhi[i], 1e-13);
}

TEST_F(PackageProperties, ScaleACompositionThatDoesNotSumToOne)
{
    setMaterial();
    ASSERT_EQ(calculate({"volume"}), S_OK);
    const double normalized = material.written["Vapor/volume"].values[0];
    material.composition = {2.0, 5.0, 1.0};
    ASSERT_EQ(calculate({"volume"}), S_OK);
    EXPECT_DOUBLE_EQ(material.written["Vapor/volume"].values[0], normalized);
}

TEST_F(PackageProperties, ReadThePhaseOnceAndWriteOnlyWhatIsAsked)
{
    setMaterial();
    material.calls.clear();
    ASSERT_EQ(calculate({"Volume", "ENTHALPY.dpressure"}, "VAPOR"), S_OK);
    EXPECT_EQ(material.calls, (std::vector<std::string>{"GetTPFraction VAPOR", "SetSinglePhaseProp VAPOR/Volume",
                                                        "SetSinglePhaseProp VAPOR/ENTHALPY.dpressure"}));
}

TEST_F(PackageProperties, RefuseWrongArguments)
{
    expectRefusal(calculate({"volume"}), errors::badInvocationOrder, "No material is set");
    setMaterial();
    expectRefusal(calculate({"volume"}, "Solid"), errors::invalidArgument, "There is no phase \"Solid\"");
    expectRefusal(properties->CalcSinglePhaseProp(texts({"volume"}).get(), nullptr), errors::invalidArgument,
                  "There is no phase \"\"");
    expectRefusal(calculate({}), errors::invalidArgument, "The properties must be an array of one name or more");
    expectRefusal(properties->CalcSinglePhaseProp({}, Bstr(std::string_view("Vapor")).get()), errors::invalidArgument,
                  "The properties must be an array of one name or more");
    expectRefusal(calculate({"volume", "pH"}), errors::limitedImplementation, "Phases have no property \"pH\" here");
    expectRefusal(calculate({""}), errors::limitedImplementation, "Phases have no property \"\" here");
}

// A list of texts by the word of the value, and of something else by its own.
TEST_F(PackageProperties, RefuseAListOfOtherElementsThanItIsSaidToHave)
{
    setMaterial();
    const char *reason = "The properties must be an array of one name or more";
    for (const VARTYPE type : {VT_I2, VT_R8, VT_VARIANT}) {
        Argument list;
        list.out()->vt = VT_ARRAY | VT_BSTR;
        list.out()->parray = SafeArrayCreateVector(type, 0, 3);
        expectRefusal(properties->CalcSinglePhaseProp(list.get(), Bstr(std::string_view("Vapor")).get()),
                      errors::invalidArgument, reason);
    }
}

TEST_F(PackageProperties, TakeAListFromAnyLowerBound)
{
    setMaterial();
    constexpr LONG lowest = std::numeric_limits<LONG>::min();
    Argument none;
    none.out()->vt = VT_ARRAY | VT_BSTR;
    none.out()->parray = SafeArrayCreateVector(VT_BSTR, lowest, 0);
    expectRefusal(properties->CalcSinglePhaseProp(none.get(), Bstr(std::string_view("Vapor")).get()),
                  errors::invalidArgument, "The properties must be an array of one name or more");
    Argument one;
    one.out()->vt = VT_ARRAY | VT_BSTR;
    one.out()->parray = SafeArrayCreateVector(VT_BSTR, lowest, 1);
    *static_cast<BSTR *>(one.get().parray->pvData) = Bstr("volume").detach();
    EXPECT_EQ(properties->CalcSinglePhaseProp(one.get(), Bstr(std::string_view("Vapor")).get()), S_OK);
    EXPECT_EQ(material.written.count("Vapor/volume"), 1u);
}

TEST_F(PackageProperties, RefuseConditionsThatMakeNoSense)
{
    setMaterial();
    const char *composition = "The composition must be numbers that are not negative and not all zero";
    const char *count = "The composition must be an array of one number for each compound of the material";
    for (const std::vector<double> &wrong :
         std::vector<std::vector<double>>{{0.5, -0.1, 0.6}, {0.5, NAN, 0.5}, {0.0, 0.0, 0.0}, {0.5, HUGE_VAL, 0.5}}) {
        material.composition = wrong;
        expectRefusal(calculate({"volume"}), errors::failedInitialization, composition);
    }
    material.composition = {0.5, 0.5};
    expectRefusal(calculate({"volume"}), errors::failedInitialization, count);
    material.composition = {0.25, 0.625, 0.125};
    material.temperature = NAN;
    expectRefusal(calculate({"volume"}), errors::failedInitialization, "The temperature is not a number");
    material.temperature = -5.0;
    expectRefusal(calculate({"volume"}), errors::outOfBounds, "The temperature must be from 20 to 1500 K");
    material.temperature = 300.0;
    material.pressure = NAN;
    expectRefusal(calculate({"volume"}), errors::failedInitialization, "The pressure is not a number");
    material.pressure = 0.0;
    expectRefusal(calculate({"volume"}), errors::outOfBounds, "The pressure must be from 0.01 to 1e8 Pa");
}

TEST_F(PackageProperties, PassOnWhatTheMaterialHasToSay)
{
    setMaterial();
    material.refused = "GetTPFraction";
    expectRefusal(calculate({"volume"}), errors::failedInitialization,
                  "The material does not give the conditions of the phase: GetTPFraction is refused");
    material.refused = "SetSinglePhaseProp";
    expectRefusal(calculate({"volume"}), errors::unknown,
                  "The material does not take a property: SetSinglePhaseProp is refused");
}

TEST_F(PackageProperties, RefuseNullPointers)
{
    EXPECT_EQ(properties->CheckSinglePhasePropSpec(nullptr, nullptr, nullptr), E_POINTER);
    EXPECT_EQ(properties->CheckTwoPhasePropSpec(nullptr, {}, nullptr), E_POINTER);
    EXPECT_EQ(properties->GetSinglePhasePropList(nullptr), E_POINTER);
    EXPECT_EQ(properties->GetTwoPhasePropList(nullptr), E_POINTER);
}

namespace {

class PackageLnPhi : public PackageFixture {
protected:
    HRESULT calculate(INT flags, const std::vector<double> &moles, std::string_view phase = "Vapor")
    {
        return properties->CalcAndGetLnPhi(Bstr(phase).get(), 250.0, 1e6, numbers(moles).get(), flags, lnPhi.out(),
                                           byT.out(), byP.out(), byMoles.out());
    }

    Argument lnPhi;
    Argument byT;
    Argument byP;
    Argument byMoles;
};

} // namespace

TEST_F(PackageLnPhi, EqualsWhatTheMaterialGets)
{
    setMaterial();
    material.pressure = 1e6;
    const std::vector<std::string> names = {"logFugacityCoefficient", "logFugacityCoefficient.Dtemperature",
                                            "logFugacityCoefficient.Dpressure"};
    ASSERT_EQ(properties->CalcSinglePhaseProp(texts(names).get(), Bstr(std::string_view("Vapor")).get()), S_OK);
    material.calls.clear();
    ASSERT_EQ(calculate(1 + 2 + 4, {0.25, 0.625, 0.125}), S_OK);
    EXPECT_EQ(numbersOf(lnPhi.get()), material.written["Vapor/" + names[0]].values);
    EXPECT_EQ(numbersOf(byT.get()), material.written["Vapor/" + names[1]].values);
    EXPECT_EQ(numbersOf(byP.get()), material.written["Vapor/" + names[2]].values);
    EXPECT_EQ(byMoles.get().vt, VT_EMPTY);
    EXPECT_TRUE(material.calls.empty()); // it works on its arguments alone
}

// The derivative with respect to compound j stands in block j: element i + 3 j.
TEST_F(PackageLnPhi, GivesTheDerivativesByMolesAtOneMole)
{
    setMaterial();
    const std::vector<double> x = {0.25, 0.625, 0.125};
    ASSERT_EQ(calculate(8, x), S_OK);
    EXPECT_EQ(lnPhi.get().vt, VT_EMPTY);
    const std::vector<double> matrix = numbersOf(byMoles.get());
    ASSERT_EQ(matrix.size(), 9u);
    for (int j = 0; j < 3; ++j) {
        std::vector<double> sides[2];
        for (int side = 0; side < 2; ++side) {
            std::vector<double> moles = x;
            moles[j] += side == 0 ? -1e-5 : 1e-5;
            ASSERT_EQ(calculate(1, moles), S_OK);
            sides[side] = numbersOf(lnPhi.get());
        }
        for (int i = 0; i < 3; ++i)
            EXPECT_NEAR(matrix[i + 3 * j], (sides[1][i] - sides[0][i]) / 2e-5, 1e-8) << i << " by " << j;
    }
}

TEST_F(PackageLnPhi, EmptiesWhatIsNotAskedFor)
{
    setMaterial();
    byT.setText("to be freed");
    ASSERT_EQ(calculate(1, {0.25, 0.625, 0.125}), S_OK);
    EXPECT_EQ(byT.get().vt, VT_EMPTY);
    ASSERT_EQ(calculate(0, {0.25, 0.625, 0.125}), S_OK);
    EXPECT_EQ(lnPhi.get().vt, VT_EMPTY);
}

TEST_F(PackageLnPhi, TakesNullForPartsThatAreNotAskedFor)
{
    setMaterial();
    const Argument moles = numbers({0.25, 0.625, 0.125});
    const Bstr phase(std::string_view("Vapor"));
    EXPECT_EQ(
        properties->CalcAndGetLnPhi(phase.get(), 250.0, 1e6, moles.get(), 1, lnPhi.out(), nullptr, nullptr, nullptr),
        S_OK);
    EXPECT_EQ(
        properties->CalcAndGetLnPhi(phase.get(), 250.0, 1e6, moles.get(), 3, lnPhi.out(), nullptr, nullptr, nullptr),
        E_POINTER);
}

TEST_F(PackageLnPhi, RefusesWrongArguments)
{
    const auto expectRefusal = [&](HRESULT result, const ErrorKind &kind, const char *description) {
        expectFailure(result, kind, "ICapeThermoPropertyRoutine", "CalcAndGetLnPhi", description);
    };
    expectRefusal(calculate(1, {0.25, 0.625, 0.125}), errors::badInvocationOrder, "No material is set");
    setMaterial();
    expectRefusal(calculate(1, {0.25, 0.625, 0.125}, "Gas"), errors::invalidArgument, "There is no phase \"Gas\"");
    expectRefusal(calculate(1, {0.3, 0.6}), errors::invalidArgument,
                  "The composition must be an array of one number for each compound of the material");
}
