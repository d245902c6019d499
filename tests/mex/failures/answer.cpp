#include "tests/mex/failures/answer.h"

#include "tests/support/text.h"

#include <sstream>

namespace support {

namespace {

template <class Element> void tellElements(std::ostream &out, const mxArray *array)
{
    const auto *elements = static_cast<const Element *>(mxGetData(array));
    for (std::size_t i = 0; i < mxGetNumberOfElements(array); ++i)
        out << ' ' << elements[i];
}

void tell(std::ostream &out, const mxArray *array)
{
    if (!array) {
        out << "nothing";
        return;
    }
    const std::size_t count = mxGetNumberOfElements(array);
    out << mxGetM(array) << " by " << mxGetN(array);
    switch (mxGetClassID(array)) {
    case mxCELL_CLASS:
        out << " cell {";
        for (std::size_t i = 0; i < count; ++i) {
            out << (i ? ", " : "");
            tell(out, mxGetCell_730(array, i));
        }
        out << "}";
        break;
    case mxCHAR_CLASS:
        out << " char '" << Narrow(WideString(mxGetChars(array), count)) << "'";
        break;
    case mxDOUBLE_CLASS:
        out << " double";
        tellElements<double>(out, array);
        break;
    case mxINT32_CLASS:
        out << " int32";
        tellElements<std::int32_t>(out, array);
        break;
    default:
        out << " of class " << mxGetClassID(array);
    }
}

} // namespace

std::string Answer(const CallResult &result)
{
    std::ostringstream out;
    out.precision(17);
    if (!result.returned)
        out << "raised " << result.error << '\n';
    for (const Array &output : result.outputs) {
        tell(out, output.get());
        out << '\n';
    }
    for (const std::string &warning : result.warnings)
        out << "warning: " << warning << '\n';
    return out.str();
}

} // namespace support
