#include "tests/support/matlab_array.h"

#include <gtest/gtest.h>

namespace support {

Array Text(const AnyText &text) { return host::Text(text.wide); }

Array TextMatrix(std::initializer_list<AnyText> rows) { return host::TextMatrix(Names(rows)); }

Array Texts(std::initializer_list<AnyText> texts)
{
    std::vector<Array> elements;
    for (const AnyText &text : texts)
        elements.push_back(Text(text));
    return Cell(elements);
}

bool FailTestsAtComplaints()
{
    host::SetComplaint([](const std::string &message) { ADD_FAILURE() << message; });
    return true;
}

} // namespace support
