// mexFunction: commands with arguments of every class and shape, against components that answer what the input says and
// act in the midst of their answers. After the exit routine nothing is left: no reference, no array, no memory.
#include "fuzz/input.h"
#include "fuzz/mex/library.h"
#include "fuzz/mex/session.h"

namespace {

constexpr int mostCommands = 40;

HRESULT create(fuzz::ComponentKind kind, REFIID iid, void **object)
{
    return MakeComponent(*fuzz::Session::current, kind, iid, object);
}

} // namespace

extern "C" int LLVMFuzzerInitialize(int *, char ***)
{
    fuzz::StartMatlab(create);
    return 0;
}

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t *data, std::size_t size)
{
    const std::size_t arraysBefore = mxStandInLiveArrays();
    fuzz::Input input(data, size);
    fuzz::StartLibrary();
    {
        fuzz::Session session(input, input.chance(128) ? mexLEAVE_JUMP : mexLEAVE_UNWIND);
        session.openPackage();
        for (int i = 0; i < mostCommands && !input.atEnd(); ++i)
            session.callCommand();
        if (input.chance(128))
            session.giveBackKept();
        fuzz::ExitLibrary();
    }
    fuzz::FreeLentNames();
    FUZZ_CHECK(mxStandInLiveArrays() == arraysBefore);
    return 0;
}
