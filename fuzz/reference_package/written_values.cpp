#include "fuzz/reference_package/written_values.h"

#include "fuzz/input.h"

#include <cmath>

namespace fuzz {

int LengthOf(const VARIANT &value, VARTYPE type)
{
    if (value.vt != (VT_ARRAY | type) || !value.parray || value.parray->cDims != 1)
        return -1;
    VARTYPE held = VT_EMPTY;
    FUZZ_CHECK(SafeArrayGetVartype(value.parray, &held) == S_OK && held == type);
    return static_cast<int>(value.parray->rgsabound[0].cElements);
}

std::vector<double> NumbersWritten(const VARIANT &value)
{
    const int count = LengthOf(value, VT_R8);
    FUZZ_CHECK(count > 0);
    const auto *first = static_cast<const double *>(value.parray->pvData);
    std::vector<double> numbers(first, first + count);
    for (const double number : numbers)
        FUZZ_CHECK(!std::isnan(number));
    return numbers;
}

} // namespace fuzz
