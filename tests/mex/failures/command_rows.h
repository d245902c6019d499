// Each command with the arguments that scripts give it.
#pragma once

#include "tests/support/mex_test.h"

#include <functional>
#include <ostream>

namespace support {

struct CommandRow {
    const char *name;
    int outputs;
    const char *package; // that the handle among the arguments is of; null without one
    std::vector<Array> (*arguments)(const Array &handle);
    const char *basis = "mole";
    bool closes = false; // the package
    bool opens = false;  // one
    bool scans = false;  // the registry
    bool goesOn = false; // behind a package's failure, of which it warns

    friend void PrintTo(const CommandRow &row, std::ostream *stream) { *stream << row.name; }
};

const std::vector<CommandRow> &CommandRows();
const CommandRow &RowOf(std::string_view name);

inline std::string NameOfRow(const testing::TestParamInfo<CommandRow> &info) { return info.param.name; }

} // namespace support
