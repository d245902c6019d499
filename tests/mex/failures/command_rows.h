// Each command with the arguments that scripts give it.
#pragma once

#include "tests/support/mex_test.h"

#include <functional>
#include <ostream>

namespace support {

enum CommandTrait : unsigned {
    inMassBasis = 1, // and not in mole basis
    opens = 2,       // a package
    closes = 4,      // it
    goesOn = 8,      // behind a package's failure, of which it warns
    scans = 16,      // the registry
    scansFirst = 32, // it, too, for all others in the campaign
};

struct CommandRow {
    const char *name;
    int outputs;
    const char *package; // that the handle among the arguments is of; null without one
    std::vector<Array> (*arguments)(const Array &handle);
    unsigned traits = 0;

    bool is(CommandTrait trait) const { return (traits & trait) != 0; }

    friend void PrintTo(const CommandRow &row, std::ostream *stream) { *stream << row.name; }
};

// The class id, in braces, of a package that the registry has no name for: what it is opened by.
WideString UnnamedPackage();

const std::vector<CommandRow> &CommandRows();
const CommandRow &RowOf(std::string_view name);
std::vector<CommandRow> RowsBetween(std::string_view first, std::string_view behind); // the last ones for ""

inline std::string NameOfRow(const testing::TestParamInfo<CommandRow> &info) { return info.param.name; }

} // namespace support
