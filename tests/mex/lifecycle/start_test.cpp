// What the library does at its first call, and the handles that follow from it.
#include "tests/mex/support/library_call.h"
#include "tests/support/mex_test.h"

#include <cstdlib>
#include <stdexcept>

using namespace support;

namespace {

class Start : public MexTest {};

// Draws the numbers that a test has chosen.
class Draws {
public:
    explicit Draws(std::vector<int> numbers) : drawn(std::move(numbers)) {}
    std::size_t left() const { return drawn.size() - next; }

private:
    std::vector<int> drawn;
    std::size_t next = 0;
    LibraryCall<"rand", decltype(std::rand)> draw{std::rand, [this] { return drawn.at(next++); }};
};

} // namespace

TEST_F(Start, EntersTheApartmentSeedsTheHandlesAndRegistersTheExitOnceInThisOrder)
{
    std::vector<std::string> steps;
    LibraryCall<"CoInitializeEx", decltype(CoInitializeEx)> enter(CoInitializeEx, [&](LPVOID reserved, DWORD mode) {
        EXPECT_EQ(reserved, nullptr);
        steps.push_back("apartment " + std::to_string(mode));
        return CoInitializeEx(reserved, mode);
    });
    LibraryCall<"GetTickCount", decltype(GetTickCount)> ticks(GetTickCount, [] { return DWORD(123456789); });
    LibraryCall<"srand", decltype(std::srand)> seed(std::srand, [&](unsigned value) {
        steps.push_back("seed " + std::to_string(value));
        std::srand(value);
    });
    LibraryCall<"mexAtExit", decltype(mexAtExit)> exit(mexAtExit, [&](auto routine) {
        steps.push_back("exit routine");
        return mexAtExit(routine);
    });
    EXPECT_EQ(call(0, {}).error, "Too few arguments for Verdanth");
    EXPECT_EQ(steps, std::vector<std::string>());
    EXPECT_EQ(call(0, {Text("no code")}).error, "Expected scalar for first argument to Verdanth");
    mustReturn(1, {Scalar(5)});
    world.addPackage("Alone");
    open("Alone");
    EXPECT_EQ(steps, (std::vector<std::string>{"apartment 2", "seed 123456789", "exit routine"}));
}

TEST_F(Start, DoesNotMindAnApartmentThatIsOfAnotherKind)
{
    LibraryCall<"CoInitializeEx", decltype(CoInitializeEx)> enter(
        CoInitializeEx, [](LPVOID, DWORD) { return static_cast<HRESULT>(0x80010106u); });
    CoInitializeEx(nullptr, COINIT_APARTMENTTHREADED); // which the exit routine leaves
    world.addPackage("Alone");
    EXPECT_EQ(mustReturn(1, {Scalar(7), open("Alone")})[0].texts(), Names({"A", "B"}));
}

TEST_F(Start, IsNotTriedAgainAfterItFailed)
{
    int entered = 0;
    LibraryCall<"CoInitializeEx", decltype(CoInitializeEx)> enter(CoInitializeEx, [&](LPVOID, DWORD) -> HRESULT {
        ++entered;
        throw std::runtime_error("no apartment");
    });
    EXPECT_EQ(call(1, {Scalar(5)}).error, "Unexpected exception: no apartment");
    EXPECT_EQ(mustReturn(1, {Scalar(19), Text("volume")})[0].text(), Wide("m3 / mol"));
    EXPECT_EQ(entered, 1);
}

TEST_F(Start, ReadsNoRegistryUntilACommandNeedsIt)
{
    int opened = 0;
    LibraryCall<"RegOpenKeyExW", decltype(RegOpenKeyExW)> opens(
        RegOpenKeyExW, [&](HKEY parent, LPCWSTR path, DWORD options, REGSAM access, PHKEY key) {
            ++opened;
            return RegOpenKeyExW(parent, path, options, access, key);
        });
    mustReturn(1, {Scalar(5)});
    mustReturn(1, {Scalar(19), Text("volume")});
    useBasis("mole");
    EXPECT_EQ(opened, 0);
    mustReturn(1, {Scalar(1)});
    EXPECT_GT(opened, 0);
}

TEST_F(Start, DrawsHandlesOfFifteenBitsUntilOneIsFree)
{
    for (const char *name : {"one", "two", "three"})
        world.addPackage(name);
    Draws draws({0x12345, 0x2345, 0x7FFF2345, 0x7FFFFFFF, 0x7FFF, 0x2346});
    EXPECT_EQ(open("one").int32(), 0x2345);
    EXPECT_EQ(open("two").int32(), 0x7FFF);
    EXPECT_EQ(open("three").int32(), 0x2346);
    EXPECT_EQ(draws.left(), 0u);
}

TEST_F(Start, TakesAHandleOfZeroForAsGoodAsAnyOther)
{
    PackageScript &package = world.addPackage("Alone");
    Draws draws({0x8000});
    const Array zero = open("Alone");
    EXPECT_EQ(zero.int32(), 0);
    EXPECT_EQ(open("Alone").int32(), 0);
    EXPECT_EQ(mustReturn(1, {Scalar(5)})[0].int32s(), std::vector<std::int32_t>{0});
    EXPECT_EQ(mustReturn(1, {Scalar(7), zero})[0].texts(), Names({"A", "B"}));
    mustReturn(0, {Scalar(4), zero});
    EXPECT_EQ(package.references(), 0);
    EXPECT_EQ(refusal(1, {Scalar(6), zero}), "Invalid property package handle");
}

TEST_F(Start, DrawsNoHandleForAPackageThatFailsOrIsOpenAlready)
{
    PackageScript &package = world.addPackage("Alone");
    package.answer("Initialize", oddFailure, 1);
    Draws draws({7});
    EXPECT_EQ(refusal(1, {Scalar(3), Text("Alone"), Text("")}), std::string("PP Initialize failed: ") + oddFailureText);
    EXPECT_EQ(draws.left(), 1u);
    EXPECT_EQ(open("Alone").int32(), 7);
    EXPECT_EQ(open("Alone").int32(), 7);
}
