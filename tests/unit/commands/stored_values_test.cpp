// The calculation commands with values in the material that no setter lets a package store: they
// take what is there and do not rely on its shape.
#include "commands/calculation_commands.h"
#include "gateway/state/global_text.h"
#include "gateway/state/settings.h"
#include "material/material_object.h"
#include "packages/package_table.h"
#include "tests/support/matlab_array.h"
#include "tests/support/scripted_package.h"

#include <gtest/gtest.h>

using namespace support;

namespace {

using Rows = std::vector<std::vector<double>>;

class StoredValues : public testing::Test {
protected:
    StoredValues()
    {
        MakeBinaryPackage(script);
        auto record = std::make_unique<OpenPackage>();
        EXPECT_EQ(script.create(InterfaceId<IDispatch>, reinterpret_cast<void **>(&record->package)), S_OK);
        handle = AddPackage(std::move(record));
    }
    ~StoredValues() override
    {
        GlobalSettings.defaultBasis = 0;
        EXPECT_TRUE(ClosePackage(handle));
    }

    // Gives an entry of the vapor these values, however many.
    void store(LPCWSTR name, std::vector<double> values, std::int32_t basis = 0)
    {
        PropertyValues &entry = FindPackage(handle)->material->phaseProps[0].entry(name);
        EXPECT_TRUE(entry.resize(static_cast<std::uint32_t>(values.size())));
        std::copy(values.begin(), values.end(), entry.values);
        entry.basis = basis;
    }
    // Leaves an entry as a failed allocation does.
    void takeValuesAway(LPCWSTR name)
    {
        PropertyValues &entry = FindPackage(handle)->material->phaseProps[0].entry(name);
        delete[] entry.values;
        entry.values = nullptr;
        entry.count = 1;
    }

    // The cell that the command gives; the test fails with the message when it gives none.
    Array mustReturn(CommandBody command, const std::vector<Array> &arguments)
    {
        Array result;
        EXPECT_EQ(run(command, arguments, result), "");
        return result;
    }
    std::string messageOf(CommandBody command, const std::vector<Array> &arguments)
    {
        Array result;
        return run(command, arguments, result);
    }
    static std::string run(CommandBody command, const std::vector<Array> &arguments, Array &result)
    {
        std::vector<const mxArray *> inputs;
        for (const Array &argument : arguments)
            inputs.push_back(argument.get());
        mxArray *output = nullptr;
        const Verdict verdict = command({0, &output, inputs.data()});
        PackageInUse.reset(); // as the end of a call does
        result = output ? Array(output) : Array();
        if (verdict.isDone())
            return "";
        return verdict.literal() ? verdict.literal() : Narrow(LastError);
    }
    std::vector<Array> singlePhase(const char *name, Array temperatures = Scalar(300)) const
    {
        return {Scalar(22),   Scalar(1),      Int32(handle),   Text(name),
                temperatures, Scalar(100000), Row({0.5, 0.5}), Text("Vapor")};
    }
    std::vector<Array> twoPhase(const char *name) const
    {
        return {Scalar(23),     Scalar(1),       Int32(handle),   Text(name),    Scalar(300),
                Scalar(100000), Row({0.5, 0.5}), Row({0.5, 0.5}), Text("Vapor"), Text("Liquid")};
    }
    std::vector<Array> batch(const char *name) const
    {
        return {Scalar(25),       Int32(handle), Row({0.5, 0.5}), Text("Temperature"), Scalar(300),
                Text("Pressure"), Scalar(1e5),   Text(""),        Scalar(1),           Text(name)};
    }

    PackageScript script;
    std::int32_t handle = 0;
};

} // namespace

TEST_F(StoredValues, FewerThanTheMatrixHoldsLeaveTheRestAtZero)
{
    script.calcSinglePhase = [this](const SinglePhaseCall &) {
        store(OLESTR("fugacity"), {7});
        return S_OK;
    };
    EXPECT_EQ(mustReturn(SinglePhasePropertyCommand, singlePhase("fugacity")).cellMatrix(0), (Rows{{7, 0}}));
    EXPECT_EQ(mustReturn(SinglePhasePropertyCommand, singlePhase("fugacity", Column({300, 310}))).cellMatrix(0),
              (Rows{{7, 0}, {7, 0}}));
}

TEST_F(StoredValues, ThatCouldNotBeAllocatedCountAsNotSet)
{
    script.calcSinglePhase = [this](const SinglePhaseCall &) {
        takeValuesAway(OLESTR("fugacity"));
        return S_OK;
    };
    EXPECT_EQ(messageOf(SinglePhasePropertyCommand, singlePhase("fugacity")),
              "Property value for fugacity was not set by property package during calculation");
}

TEST_F(StoredValues, OfABasePropertyMustBeOne)
{
    script.calcSinglePhase = [this](const SinglePhaseCall &) {
        store(OLESTR("enthalpy"), {1, 2}, 1);
        store(OLESTR("enthalpy.DmolFraction"), {1, 2}, 1);
        return S_OK;
    };
    EXPECT_EQ(messageOf(SinglePhasePropertyCommand, singlePhase("enthalpy.DmolFraction")),
              "Internal error; expected scalar in chain rule basis conversion");
}

TEST_F(StoredValues, OfAMoleFractionDerivativeMustBeOnePerCompoundForTheChainRule)
{
    script.calcSinglePhase = [this](const SinglePhaseCall &) {
        store(OLESTR("enthalpy"), {1}, 1);
        store(OLESTR("enthalpy.DmolFraction"), {1}, 1);
        return S_OK;
    };
    EXPECT_EQ(messageOf(SinglePhasePropertyCommand, singlePhase("enthalpy.DmolFraction")),
              "Unexpected number of property values in chain rule mass/mole conversion of mole fraction derivatives");
}

TEST_F(StoredValues, WithoutTheLowBitInTheirBasisArePerMole)
{
    script.calcSinglePhase = [this](const SinglePhaseCall &) {
        store(OLESTR("enthalpy"), {1000}, 2);
        return S_OK;
    };
    EXPECT_EQ(mustReturn(SinglePhasePropertyCommand, singlePhase("enthalpy")).cellMatrix(0), (Rows{{1000}}));
}

TEST_F(StoredValues, HaveTheSameBasisWhenTheLowBitsAreTheSame)
{
    script.calcSinglePhase = [this](const SinglePhaseCall &) {
        store(OLESTR("enthalpy"), {0}, 3);
        store(OLESTR("enthalpy.DmolFraction"), {1000, 2000}, 1);
        return S_OK;
    };
    const Rows values = mustReturn(SinglePhasePropertyCommand, singlePhase("enthalpy.DmolFraction")).cellMatrix(0);
    EXPECT_NEAR(values.at(0).at(0), 27, 1e-12); // times 0.027 kg/mol
    EXPECT_NEAR(values.at(0).at(1), 54, 1e-12);
}

TEST_F(StoredValues, OfTwoPhasesAreHalvedAndAnOddLastOneIsDropped)
{
    script.calcTwoPhase = [this](const TwoPhaseCall &) {
        store(OLESTR("liquid:surfaceTension.DmolFraction"), {1, 2, 3});
        return S_OK;
    };
    const Array parts = mustReturn(TwoPhasePropertyCommand, twoPhase("surfaceTension.DmolFraction")).element(0);
    EXPECT_EQ(parts.cellMatrix(0), (Rows{{1, 0}}));
    EXPECT_EQ(parts.cellMatrix(1), (Rows{{2, 0}}));
}

TEST_F(StoredValues, OfTwoPhasesAreNotConvertedWhateverTheirBasisBit)
{
    script.calcTwoPhase = [this](const TwoPhaseCall &) {
        store(OLESTR("liquid:surfaceTension"), {0.07}, 1);
        return S_OK;
    };
    EXPECT_EQ(mustReturn(TwoPhasePropertyCommand, twoPhase("surfaceTension")).cellMatrix(0), (Rows{{0.07}}));
}

TEST_F(StoredValues, AfterAFlashCountWithTheFirstOnly)
{
    script.calcEquilibrium = [](const EquilibriumCall &request) {
        return request.material.setEquilibrium({{"Vapor", 0.5, {0.5, 0.5}}}, 300, 1e5);
    };
    script.calcSinglePhase = [this](const SinglePhaseCall &) {
        store(OLESTR("enthalpy"), {8, 100});
        return S_OK;
    };
    EXPECT_EQ(mustReturn(BatchFlashCommand, batch("enthalpy")).cellMatrix(0), (Rows{{4}}));
    script.calcSinglePhase = [this](const SinglePhaseCall &) {
        store(OLESTR("enthalpy"), {10}, 2); // per mole: the low bit is not set
        return S_OK;
    };
    EXPECT_EQ(mustReturn(BatchFlashCommand, batch("enthalpy")).cellMatrix(0), (Rows{{5}}));
    script.calcSinglePhase = [this](const SinglePhaseCall &) {
        store(OLESTR("enthalpy"), {});
        return S_OK;
    };
    EXPECT_EQ(messageOf(BatchFlashCommand, batch("enthalpy")),
              "Property not set after post-flash property calculation");
}
