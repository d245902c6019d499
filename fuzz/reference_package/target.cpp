// The reference packages, called in any order with any arguments, with a material that answers anything. What they
// write has to be free of NaN, an equilibrium has to hold all of the feed, and a failure has to say what it was.
#include "fuzz/reference_package/session.h"

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t *data, std::size_t size)
{
    FuzzedDataProvider input(data, size);
    fuzz::Session(input).run();
    return 0;
}
