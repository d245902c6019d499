// What goes through the client: to the library in the other process and back.
#include "tests/client/client_test.h"

#include <cmath>

using namespace support;

namespace {

class ClientCalls : public ClientTest {
protected:
    // The composition of N compounds, of all as much.
    static Array feed(std::size_t n) { return Row(std::vector<double>(n, 1.0 / static_cast<double>(n))); }
    // How many there are of a flash that can not be, after warnings were set.
    std::size_t warningsWith(const Array &setting)
    {
        mustReturn(0, {Scalar(17), setting});
        return mustReturn(1, {Scalar(25), openAir(), feed(compounds), Text("Temperature"), Scalar(std::nan("")),
                              Text("Pressure"), Scalar(1e5), Text("Unspecified"), Scalar(1), Text("vaporFraction")})
            .warnings.size();
    }
    static constexpr std::size_t compounds = 8; // of "Air"
};

// What the library itself says to each of the calls, in this process.
std::vector<CallResult> answersInProcess(const std::vector<std::vector<Array>> &calls)
{
    host::Library library(LeaveOfThisRun());
    std::vector<CallResult> answers;
    answers.reserve(calls.size());
    for (const std::vector<Array> &arguments : calls)
        answers.push_back(library.call(1, arguments));
    return answers;
}

} // namespace

TEST_F(ClientCalls, GiveTextsListsHandlesAndNumbers)
{
    EXPECT_EQ(mustReturn(1, {Scalar(26)})[0].text(), Wide("Verdanth.DLL version: 2.0.0.4"));
    EXPECT_EQ(mustReturn(0, {Scalar(26)})[0].text(), Wide("Verdanth.DLL version: 2.0.0.4"));
    EXPECT_EQ(mustReturn(1, {Scalar(5)})[0].dimensions(), (std::vector<std::size_t>{0, 0}));
    const Array air = openAir();
    EXPECT_EQ(mustReturn(1, {Scalar(5)})[0].int32s(), std::vector<std::int32_t>{air.int32()});
    EXPECT_EQ(mustReturn(1, {Scalar(7), air})[0].texts(),
              Names({"nitrogen", "oxygen", "argon", "carbon dioxide", "neon", "helium", "krypton", "xenon"}));
    const CallResult flash = mustReturn(5, {Scalar(24), air, feed(compounds), Text("Temperature"), Scalar(300),
                                            Text("Pressure"), Scalar(1e5), Text("Unspecified")});
    EXPECT_EQ(flash[0].texts(), Names({"Vapor"}));
    EXPECT_EQ(flash[1].numbers(), std::vector<double>{1});
    EXPECT_EQ(flash[3].number(), 300);
    EXPECT_EQ(flash[4].number(), 1e5);
    EXPECT_TRUE(mustReturn(0, {Scalar(4), air}).returned);
    EXPECT_EQ(refusal({Scalar(7), air}), "Invalid property package handle");
}

TEST_F(ClientCalls, MoveArraysThatNoPipeHoldsAtOnce)
{
    constexpr std::size_t rows = 60000;
    const Array air = openAir();
    std::vector<double> temperatures;
    for (std::size_t row = 0; row < rows; ++row)
        temperatures.push_back(300 + static_cast<double>(row) / rows);
    const std::vector<Array> arguments = {Scalar(22),
                                          Scalar(1),
                                          air,
                                          Text("volume"),
                                          Column(temperatures),
                                          Column(std::vector<double>(rows, 1e5)),
                                          feed(compounds),
                                          Text("Vapor")};
    const std::vector<double> volumes = mustReturn(1, arguments)[0].element(0).numbers();
    ASSERT_EQ(volumes.size(), rows);
    for (const std::size_t row : {std::size_t{0}, std::size_t{1}, rows / 2, rows - 1}) {
        std::vector<Array> alone = arguments;
        alone[4] = Scalar(temperatures[row]);
        alone[5] = Scalar(1e5);
        EXPECT_EQ(volumes[row], mustReturn(1, alone)[0].element(0).number()) << row;
    }
}

TEST_F(ClientCalls, ShowTheLibraryEveryKindOfArrayAsItIs)
{
    const std::vector<Array> oddities = {Empty(),
                                         EmptyCell(),
                                         EmptyText(),
                                         Text("x"),
                                         Text("mass"),
                                         TextMatrix({"ab", "cd"}),
                                         Scalar(1),
                                         Scalar(std::nan("")),
                                         Row({1, 2, 3}),
                                         Int32(7),
                                         Int32Column({1, 2}),
                                         Logical(true),
                                         Logical(false),
                                         Single(2),
                                         SingleColumn({1, 2}),
                                         SingleColumn({}),
                                         Complex(1, 2),
                                         ComplexColumn({1, 2}),
                                         Cell({Cell({Text("x")})}),
                                         Cell({Array()}),
                                         Cell({Text("mole")}),
                                         Zeros({2, 2, 2}),
                                         Texts({"a", "b"})};
    struct Shape {
        int code;
        std::size_t arguments; // the code included
    };
    constexpr Shape shapes[] = {{2, 2},  {3, 3},  {4, 2},  {6, 2},  {9, 3},   {16, 3}, {17, 2}, {18, 2},
                                {19, 2}, {20, 5}, {21, 5}, {22, 8}, {23, 10}, {24, 8}, {25, 10}};
    std::vector<std::vector<Array>> calls;
    for (const Array &oddity : oddities)
        calls.push_back({oddity});
    for (const Shape &shape : shapes)
        for (std::size_t place = 1; place < shape.arguments; ++place)
            for (const Array &oddity : oddities) {
                std::vector<Array> arguments(shape.arguments, Scalar(1));
                arguments[0] = Scalar(shape.code);
                arguments[place] = oddity;
                calls.push_back(arguments);
            }
    const std::vector<CallResult> expected = answersInProcess(calls);
    for (std::size_t k = 0; k < calls.size(); ++k) {
        const CallResult answer = call(1, calls[k]);
        SCOPED_TRACE("call " + std::to_string(k) + " of command " +
                     std::to_string(k < oddities.size() ? 0 : calls[k][0].number()));
        EXPECT_EQ(answer.returned, expected[k].returned);
        EXPECT_EQ(answer.error, expected[k].error);
        EXPECT_EQ(answer.warnings, expected[k].warnings);
    }
}

TEST_F(ClientCalls, ReadSettingsFromArraysOfAnyClass)
{
    for (const Array &off : {Scalar(0), Logical(false), Single(0), Int32(0), Empty(), EmptyText(), EmptyCell()})
        EXPECT_EQ(warningsWith(off), 0u);
    for (const Array &on : {Scalar(-1), Logical(true), Single(1e-30F), Int32(5), SingleColumn({1, 0}), Text("0")})
        EXPECT_GT(warningsWith(on), 0u);
}

TEST_F(ClientCalls, GiveWarningsInTheirOrder)
{
    const CallResult opened = mustReturn(1, {Scalar(3), Text("talks"), Text("")});
    ASSERT_EQ(opened.warnings.size(), 3u);
    EXPECT_EQ(opened.warnings[0], opened.warnings[2]);
    EXPECT_EQ(opened.warnings[0].substr(0, 24), "CAPE-OPEN: logged at 20 ");
    EXPECT_EQ(opened.warnings[1].substr(0, 16), "shown in a box, ");
    EXPECT_EQ(mustReturn(1, {Scalar(26)}).warnings, std::vector<std::string>());
}

TEST_F(ClientCalls, RefuseWrongNumbersOfArgumentsInTheWordsOfTheLibrary)
{
    EXPECT_EQ(refusal({}), "Too few arguments for Verdanth");
    EXPECT_EQ(refusal({Scalar(26), Scalar(1)}), "Invalid number of arguments for Verdanth");
    EXPECT_EQ(call(2, {Scalar(26)}).error, "Invalid number of output arguments for Verdanth");
    EXPECT_EQ(refusal({Scalar(99)}), "Invalid function argument to Verdanth");
    EXPECT_EQ(refusal({Scalar(3), Text("100% \\n no"), Text("")}), "no such package manager: \"100% \\n no\"");
}

TEST_F(ClientCalls, GoOnWhenThereWasNoMemoryForAResult)
{
    const std::vector<Array> compoundList = {Scalar(7), openAir()};
    for (std::size_t failing = 1; failing <= 4; ++failing) {
        mxStandInFailCreation(failing);
        EXPECT_EQ(refusal(compoundList), "Out of memory.");
        mxStandInFailCreation(0);
        EXPECT_EQ(mustReturn(1, compoundList)[0].count(), compounds);
    }
}

TEST_F(ClientCalls, TellWhereTheLibraryRuns)
{
    EXPECT_EQ(mustReturn(1, {Text("back end")})[0].text(), L"isolated: " + FolderOfTests() + L"VerdanthHost64.exe");
    EXPECT_EQ(refusal({Text("back ends")}), "Expected scalar for first argument to Verdanth");
    EXPECT_EQ(mustReturn(1, {Scalar(26)})[0].text(), Wide("Verdanth.DLL version: 2.0.0.4"));
}
