#include "commands/name_argument.h"

#include "cape/com/bstr.h"
#include "gateway/call/marshalling.h"
#include "gateway/state/global_lists.h"

#include <cstdint>

namespace {

// Truncates as a conversion to 64 bits and then to 32 does; what fits in neither counts as 0.
std::uint32_t cutToUnsigned(double number)
{
    constexpr double limit = 9223372036854775808.0; // 2 to the 63rd
    if (!(number >= -limit && number < limit))
        return 0;
    return static_cast<std::uint32_t>(static_cast<std::int64_t>(number));
}

} // namespace

Verdict ReadNames(const mxArray *names, const mxArray *outputCount)
{
    if (!ParseNameList(names))
        return Verdict::refuse("Expected string or cell array of strings for property names");
    std::uint32_t requested = cutToUnsigned(ScalarOf(outputCount));
    if (requested > NameList.size())
        return Verdict::refuse("Too many output arguments");
    if (requested == 0)
        requested = 1;
    if (requested < NameList.size())
        NameList.resize(requested);
    return Verdict::done();
}

void BuildNameArray()
{
    NameArray.Create(static_cast<std::int32_t>(NameList.size()), VT_BSTR);
    for (std::size_t i = 0; i < NameList.size(); ++i)
        NameArray.PutString(static_cast<std::int32_t>(i), Bstr(NameList[i]).get());
}
