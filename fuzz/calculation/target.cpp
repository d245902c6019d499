// Commands 22 to 25 against a package that does its work with values, bases and phases of the input's choice. A model
// works out from the arguments and from what the package stored what each command must ask of the package, and which
// numbers or words it must give.
#include "fuzz/calculation/play.h"
#include "fuzz/input.h"
#include "fuzz/mex/library.h"

namespace {

constexpr int mostCommands = 12;

} // namespace

extern "C" int LLVMFuzzerInitialize(int *, char ***)
{
    fuzz::StartMatlab(fuzz::CalculationPackage::create);
    return 0;
}

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t *data, std::size_t size)
{
    const std::size_t arraysBefore = mxStandInLiveArrays();
    fuzz::Input input(data, size);
    fuzz::StartLibrary();
    {
        fuzz::CalculationPackage package(input);
        fuzz::Play play(input, package);
        for (int i = 0; i < mostCommands && !input.atEnd(); ++i)
            play.step();
        fuzz::ExitLibrary();
    }
    FUZZ_CHECK(mxStandInLiveArrays() == arraysBefore);
    return 0;
}
